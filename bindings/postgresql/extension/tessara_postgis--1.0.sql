-- The casts between the extensions tessara and postgis. CREATE EXTENSION tessara_postgis runs this file.
\echo Use "CREATE EXTENSION tessara_postgis" to load this file. \quit

-- PostGIS has the longitude first. A geometry in another system is transformed by PostGIS; one without a system is
-- refused by it. An empty point is NULL.
CREATE FUNCTION tessara_position(geometry) RETURNS tessara_position
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE COST 10
    RETURN tessara_position(ST_Y(ST_Transform($1, 4326)), ST_X(ST_Transform($1, 4326)));
CREATE FUNCTION tessara_position(geography) RETURNS tessara_position
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE COST 10
    RETURN tessara_position(ST_Y($1::geometry), ST_X($1::geometry));
CREATE FUNCTION tessara_geometry(place tessara_position) RETURNS geometry
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE COST 20
    RETURN ST_SetSRID(ST_MakePoint(tessara_longitude(place), tessara_latitude(place)), 4326);
CREATE FUNCTION tessara_geography(place tessara_position) RETURNS geography
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE COST 20
    RETURN ST_SetSRID(ST_MakePoint(tessara_longitude(place), tessara_latitude(place)), 4326)::geography;
CREATE FUNCTION tessara_geometry(line path) RETURNS geometry
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE COST 20
    RETURN ST_SetSRID(line::geometry, 4326);

CREATE CAST (geometry AS tessara_position) WITH FUNCTION tessara_position(geometry);
CREATE CAST (geography AS tessara_position) WITH FUNCTION tessara_position(geography);
CREATE CAST (tessara_position AS geometry) WITH FUNCTION tessara_geometry(tessara_position);
CREATE CAST (tessara_position AS geography) WITH FUNCTION tessara_geography(tessara_position);
