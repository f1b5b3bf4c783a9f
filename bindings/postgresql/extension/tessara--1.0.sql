-- The functions of the extension tessara. CREATE EXTENSION tessara runs this file.
\echo Use "CREATE EXTENSION tessara" to load this file. \quit

-- Everything depends on the arguments alone and is the same on every machine, so it is immutable and runs in parallel
-- workers. A cost is the measured time of a call in units of 10 nanoseconds, about that of an addition.

-- References: SYSTEM[:PARAMETERS][@DATUM]. They are names, but have no collation, so that foreign servers are sent
-- what is asked by them.
CREATE TYPE tessara_reference;
CREATE FUNCTION tessara_reference_in(cstring) RETURNS tessara_reference
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_reference_out(tessara_reference) RETURNS cstring
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE TYPE tessara_reference (INPUT = tessara_reference_in, OUTPUT = tessara_reference_out, STORAGE = extended);
CREATE CAST (text AS tessara_reference) WITH INOUT AS IMPLICIT;
COMMENT ON TYPE tessara_reference IS 'a coordinate system and a datum, such as CH@CH1903';

-- Military references and their squares. A B-tree has them by zone, band and square, a square before what lies in it.
CREATE TYPE tessara_gridref;
CREATE FUNCTION tessara_gridref_in(cstring) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_out(tessara_gridref) RETURNS cstring
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_recv(internal) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_send(tessara_gridref) RETURNS bytea
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE TYPE tessara_gridref (
    INPUT = tessara_gridref_in, OUTPUT = tessara_gridref_out, RECEIVE = tessara_gridref_recv, SEND = tessara_gridref_send,
    INTERNALLENGTH = 8, ALIGNMENT = double, PASSEDBYVALUE);
COMMENT ON TYPE tessara_gridref IS 'a military reference of a place or of a square on WGS84';

CREATE FUNCTION tessara_gridref_lt(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_le(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_eq(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_ne(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_ge(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_gt(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_cmp(tessara_gridref, tessara_gridref) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_hash(tessara_gridref) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_hash_extended(tessara_gridref, bigint) RETURNS bigint
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_sortsupport(internal) RETURNS void
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE OPERATOR < (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_lt, COMMUTATOR = >, NEGATOR = >=,
    RESTRICT = scalarltsel, JOIN = scalarltjoinsel);
CREATE OPERATOR <= (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_le, COMMUTATOR = >=, NEGATOR = >,
    RESTRICT = scalarlesel, JOIN = scalarlejoinsel);
CREATE OPERATOR = (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_eq, COMMUTATOR = =, NEGATOR = <>,
    RESTRICT = eqsel, JOIN = eqjoinsel, HASHES, MERGES);
CREATE OPERATOR <> (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_ne, COMMUTATOR = <>, NEGATOR = =,
    RESTRICT = neqsel, JOIN = neqjoinsel);
CREATE OPERATOR >= (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_ge, COMMUTATOR = <=, NEGATOR = <,
    RESTRICT = scalargesel, JOIN = scalargejoinsel);
CREATE OPERATOR > (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_gt, COMMUTATOR = <, NEGATOR = <=,
    RESTRICT = scalargtsel, JOIN = scalargtjoinsel);
CREATE OPERATOR CLASS tessara_gridref_ops DEFAULT FOR TYPE tessara_gridref USING btree AS
    OPERATOR 1 <, OPERATOR 2 <=, OPERATOR 3 =, OPERATOR 4 >=, OPERATOR 5 >,
    FUNCTION 1 tessara_gridref_cmp(tessara_gridref, tessara_gridref), FUNCTION 2 tessara_gridref_sortsupport(internal);
CREATE OPERATOR CLASS tessara_gridref_hash_ops DEFAULT FOR TYPE tessara_gridref USING hash AS
    OPERATOR 1 =,
    FUNCTION 1 tessara_gridref_hash(tessara_gridref), FUNCTION 2 tessara_gridref_hash_extended(tessara_gridref, bigint);

CREATE FUNCTION tessara_gridref_is_in_support(internal) RETURNS internal
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_contains_support(internal) RETURNS internal
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_gridref_is_in(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE SUPPORT tessara_gridref_is_in_support;
CREATE FUNCTION tessara_gridref_contains(tessara_gridref, tessara_gridref) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE SUPPORT tessara_gridref_contains_support;
CREATE OPERATOR <@ (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_is_in, COMMUTATOR = @>,
    RESTRICT = matchingsel, JOIN = matchingjoinsel);
CREATE OPERATOR @> (
    LEFTARG = tessara_gridref, RIGHTARG = tessara_gridref, FUNCTION = tessara_gridref_contains, COMMUTATOR = <@,
    RESTRICT = matchingsel, JOIN = matchingjoinsel);

CREATE FUNCTION tessara_gridref_like(tessara_gridref, cstring) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION tessara_gridref_not_like(tessara_gridref, cstring) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE OPERATOR ~~ (
    LEFTARG = tessara_gridref, RIGHTARG = cstring, FUNCTION = tessara_gridref_like, NEGATOR = !~~,
    RESTRICT = contsel, JOIN = contjoinsel);
CREATE OPERATOR !~~ (
    LEFTARG = tessara_gridref, RIGHTARG = cstring, FUNCTION = tessara_gridref_not_like, NEGATOR = ~~);

-- Positions in any system on any datum. They are equal if they are the same place, whatever system they are in.
CREATE TYPE tessara_position;
CREATE FUNCTION tessara_position_in(cstring) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_position_out(tessara_position) RETURNS cstring
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_position_recv(internal) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE FUNCTION tessara_position_send(tessara_position) RETURNS bytea
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
CREATE TYPE tessara_position (
    INPUT = tessara_position_in, OUTPUT = tessara_position_out, RECEIVE = tessara_position_recv, SEND = tessara_position_send,
    INTERNALLENGTH = 64, ALIGNMENT = double);
COMMENT ON TYPE tessara_position IS 'a position in a coordinate system on a datum';

CREATE FUNCTION tessara_position_lt(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_le(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_eq(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_ne(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_ge(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_gt(tessara_position, tessara_position) RETURNS boolean
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_cmp(tessara_position, tessara_position) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 25;
CREATE FUNCTION tessara_position_hash(tessara_position) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_position_hash_extended(tessara_position, bigint) RETURNS bigint
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE OPERATOR < (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_lt, COMMUTATOR = >, NEGATOR = >=,
    RESTRICT = scalarltsel, JOIN = scalarltjoinsel);
CREATE OPERATOR <= (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_le, COMMUTATOR = >=, NEGATOR = >,
    RESTRICT = scalarlesel, JOIN = scalarlejoinsel);
CREATE OPERATOR = (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_eq, COMMUTATOR = =, NEGATOR = <>,
    RESTRICT = eqsel, JOIN = eqjoinsel, HASHES, MERGES);
CREATE OPERATOR <> (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_ne, COMMUTATOR = <>, NEGATOR = =,
    RESTRICT = neqsel, JOIN = neqjoinsel);
CREATE OPERATOR >= (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_ge, COMMUTATOR = <=, NEGATOR = <,
    RESTRICT = scalargesel, JOIN = scalargejoinsel);
CREATE OPERATOR > (
    LEFTARG = tessara_position, RIGHTARG = tessara_position, FUNCTION = tessara_position_gt, COMMUTATOR = <, NEGATOR = <=,
    RESTRICT = scalargtsel, JOIN = scalargtjoinsel);
CREATE OPERATOR CLASS tessara_position_ops DEFAULT FOR TYPE tessara_position USING btree AS
    OPERATOR 1 <, OPERATOR 2 <=, OPERATOR 3 =, OPERATOR 4 >=, OPERATOR 5 >,
    FUNCTION 1 tessara_position_cmp(tessara_position, tessara_position);
CREATE OPERATOR CLASS tessara_position_hash_ops DEFAULT FOR TYPE tessara_position USING hash AS
    OPERATOR 1 =,
    FUNCTION 1 tessara_position_hash(tessara_position), FUNCTION 2 tessara_position_hash_extended(tessara_position, bigint);


-- UTM. With a zone behind latitude and longitude, the one that is wanted.
CREATE FUNCTION tessara_utm_zone(latitude double precision, longitude double precision) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_zone_or_null(latitude double precision, longitude double precision) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_hemisphere(latitude double precision, longitude double precision) RETURNS "char"
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_hemisphere_or_null(latitude double precision, longitude double precision) RETURNS "char"
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_easting(latitude double precision, longitude double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_easting_or_null(latitude double precision, longitude double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_northing(latitude double precision, longitude double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_northing_or_null(latitude double precision, longitude double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm(latitude double precision, longitude double precision, OUT zone integer, OUT hemisphere "char",
    OUT easting double precision, OUT northing double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;
CREATE FUNCTION tessara_utm_or_null(latitude double precision, longitude double precision, OUT zone integer, OUT hemisphere "char",
    OUT easting double precision, OUT northing double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;
CREATE FUNCTION tessara_utm_hemisphere(latitude double precision, longitude double precision, zone integer) RETURNS "char"
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_hemisphere_or_null(latitude double precision, longitude double precision, zone integer) RETURNS "char"
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_easting(latitude double precision, longitude double precision, zone integer) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_easting_or_null(latitude double precision, longitude double precision, zone integer) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_northing(latitude double precision, longitude double precision, zone integer) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm_northing_or_null(latitude double precision, longitude double precision, zone integer) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 10;
CREATE FUNCTION tessara_utm(latitude double precision, longitude double precision, wanted integer, OUT zone integer, OUT hemisphere "char",
    OUT easting double precision, OUT northing double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;
CREATE FUNCTION tessara_utm_or_null(latitude double precision, longitude double precision, wanted integer, OUT zone integer, OUT hemisphere "char",
    OUT easting double precision, OUT northing double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;

-- Military references: the nearest metre, the square that a position lies in, and the larger square around one.
CREATE FUNCTION tessara_gridref(latitude double precision, longitude double precision) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_gridref_or_null(latitude double precision, longitude double precision) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_square(latitude double precision, longitude double precision, metres integer) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_square_or_null(latitude double precision, longitude double precision, metres integer) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_square(gridref tessara_gridref, metres integer) RETURNS tessara_gridref
    AS 'MODULE_PATHNAME', 'tessara_square_around' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION tessara_side(gridref tessara_gridref) RETURNS integer
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1;

-- Conversions. From degrees on WGS84, from a position, or from the two numbers of a source.
CREATE FUNCTION tessara_convert(latitude double precision, longitude double precision, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_convert_or_null(latitude double precision, longitude double precision, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_convert(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_convert_or_null(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_convert(place tessara_position, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME', 'tessara_convert_position' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_convert_or_null(place tessara_position, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME', 'tessara_convert_position_or_null' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 35;
CREATE FUNCTION tessara_north(latitude double precision, longitude double precision, target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_north_or_null(latitude double precision, longitude double precision, target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_north(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_north_or_null(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_east(latitude double precision, longitude double precision, target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_east_or_null(latitude double precision, longitude double precision, target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_east(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_east_or_null(north double precision, east double precision, source tessara_reference,
    target tessara_reference) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_convert_array(latitudes double precision[], longitudes double precision[], target tessara_reference,
    OUT norths double precision[], OUT easts double precision[], OUT zones integer[])
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION tessara_convert_array_or_null(latitudes double precision[], longitudes double precision[], target tessara_reference,
    OUT norths double precision[], OUT easts double precision[], OUT zones integer[])
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION tessara_gridref_array(latitudes double precision[], longitudes double precision[]) RETURNS tessara_gridref[]
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION tessara_gridref_array_or_null(latitudes double precision[], longitudes double precision[]) RETURNS tessara_gridref[]
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION tessara_square_array(latitudes double precision[], longitudes double precision[], metres integer) RETURNS tessara_gridref[]
    AS 'MODULE_PATHNAME', 'tessara_gridref_array' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;
CREATE FUNCTION tessara_square_array_or_null(latitudes double precision[], longitudes double precision[], metres integer) RETURNS tessara_gridref[]
    AS 'MODULE_PATHNAME', 'tessara_gridref_array_or_null' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100;

-- Positions: made of degrees on WGS84 and taken apart.
CREATE FUNCTION tessara_position(latitude double precision, longitude double precision) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION tessara_position_or_null(latitude double precision, longitude double precision) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION tessara_latitude(place tessara_position) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_longitude(place tessara_position) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_number(place tessara_position, field text) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_reference(place tessara_position) RETURNS text
    AS 'MODULE_PATHNAME', 'tessara_reference_of' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_position_of_point(point) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2;
CREATE FUNCTION tessara_point(place tessara_position) RETURNS point
    AS 'MODULE_PATHNAME', 'tessara_point_of_position' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE FUNCTION tessara_position_of_gridref(tessara_gridref) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 15;
CREATE CAST (point AS tessara_position) WITH FUNCTION tessara_position_of_point(point);
CREATE CAST (tessara_position AS point) WITH FUNCTION tessara_point(tessara_position);
CREATE CAST (tessara_gridref AS tessara_position) WITH FUNCTION tessara_position_of_gridref(tessara_gridref) AS IMPLICIT;

-- Texts.
CREATE FUNCTION tessara_parse(typed text) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_parse_or_null(typed text) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_parse(typed text, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_parse_or_null(typed text, target tessara_reference) RETURNS tessara_position
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_check(typed text,
    OUT is_position boolean, OUT code text, OUT reason text, OUT piece text, OUT piece_at integer)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_check(typed text, target tessara_reference,
    OUT is_position boolean, OUT code text, OUT reason text, OUT piece text, OUT piece_at integer)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 1000;
CREATE FUNCTION tessara_format(place tessara_position) RETURNS text
    AS 'MODULE_PATHNAME', 'tessara_format_position' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 150;
CREATE FUNCTION tessara_format(latitude double precision, longitude double precision, target tessara_reference) RETURNS text
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 150;
CREATE FUNCTION tessara_format_or_null(latitude double precision, longitude double precision, target tessara_reference) RETURNS text
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 150;

-- Geodesics, on the ellipsoid of WGS84 or of a datum. Azimuths are degrees clockwise from north.
CREATE FUNCTION tessara_distance(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_distance_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_azimuth(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_azimuth_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_way(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision,
    OUT distance double precision, OUT azimuth double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_way_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision,
    OUT distance double precision, OUT azimuth double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_direct(latitude double precision, longitude double precision,
    azimuth double precision, distance double precision,
    OUT end_latitude double precision, OUT end_longitude double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_direct_or_null(latitude double precision, longitude double precision,
    azimuth double precision, distance double precision,
    OUT end_latitude double precision, OUT end_longitude double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_distance(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_distance_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_azimuth(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_azimuth_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text) RETURNS double precision
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_way(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text,
    OUT distance double precision, OUT azimuth double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_way_or_null(latitude1 double precision, longitude1 double precision,
    latitude2 double precision, longitude2 double precision, datum text,
    OUT distance double precision, OUT azimuth double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_direct(latitude double precision, longitude double precision,
    azimuth double precision, distance double precision, datum text,
    OUT end_latitude double precision, OUT end_longitude double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_direct_or_null(latitude double precision, longitude double precision,
    azimuth double precision, distance double precision, datum text,
    OUT end_latitude double precision, OUT end_longitude double precision, OUT back_azimuth double precision)
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_distance(place1 tessara_position, place2 tessara_position) RETURNS double precision
    AS 'MODULE_PATHNAME', 'tessara_distance_of_positions' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;
CREATE FUNCTION tessara_distance_or_null(place1 tessara_position, place2 tessara_position) RETURNS double precision
    AS 'MODULE_PATHNAME', 'tessara_distance_of_positions_or_null' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 50;

-- Grid lines and zone borders in a window of degrees on WGS84. A point of a path has its longitude as x.
CREATE FUNCTION tessara_grid_lines(system tessara_reference, south double precision, west double precision,
    north double precision, east double precision, step double precision,
    OUT axis text, OUT value double precision, OUT label text, OUT zone integer, OUT part integer, OUT line path)
    RETURNS SETOF record
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100000 ROWS 20;
CREATE FUNCTION tessara_grid_lines(system tessara_reference, south double precision, west double precision,
    north double precision, east double precision, east_step double precision, north_step double precision,
    OUT axis text, OUT value double precision, OUT label text, OUT zone integer, OUT part integer, OUT line path)
    RETURNS SETOF record
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100000 ROWS 20;
CREATE FUNCTION tessara_zone_borders(system tessara_reference, south double precision, west double precision,
    north double precision, east double precision,
    OUT west_zone integer, OUT east_zone integer, OUT part integer, OUT line path) RETURNS SETOF record
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100000 ROWS 10;

-- What there is.
CREATE FUNCTION tessara_systems(OUT number integer, OUT name text, OUT unit text, OUT fields text[]) RETURNS SETOF record
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE ROWS 23;
CREATE FUNCTION tessara_datums(
    OUT number integer, OUT name text, OUT ellipsoid text, OUT semi_major_axis double precision,
    OUT flattening double precision, OUT dx double precision, OUT dy double precision, OUT dz double precision)
    RETURNS SETOF record
    AS 'MODULE_PATHNAME' LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE ROWS 239;
