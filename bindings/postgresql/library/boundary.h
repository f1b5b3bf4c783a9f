/* The library as plain C: what the server's side of the extension calls.
 *
 * The server reports errors by longjmp, the library throws exceptions. Neither passes this header: the
 * library's side calls nothing of the server and catches whatever is thrown, and the server's side is C and
 * has nothing to unwind.
 *
 * A function that returns bool writes its results if it returns true, and otherwise the error. Texts are
 * UTF-8. Latitudes and longitudes are degrees on WGS84 where no datum is named. */
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define TESSARA_BOUNDARY extern "C"
#define TESSARA_NOTHROW noexcept
#else
#define TESSARA_BOUNDARY extern
#define TESSARA_NOTHROW
#endif

typedef enum TessaraErrorKind {
    TESSARA_NO_POSITION,    /* the position has no result */
    TESSARA_WRONG_TEXT,     /* a text is no position */
    TESSARA_WRONG_ARGUMENT, /* a name or a number that isn't one of those there are */
    TESSARA_NO_MEMORY,
    TESSARA_INTERNAL
} TessaraErrorKind;

enum { TESSARA_TEXT_SIZE = 512 };

typedef struct TessaraError {
    TessaraErrorKind kind;
    /* Of a position without a result; its texts are written by Tessara_Describe, as most such rows need none.
     */
    int32_t status;
    double north;
    double east;
    /* Of other errors. Detail and hint are empty for none. */
    char message[TESSARA_TEXT_SIZE];
    char detail[TESSARA_TEXT_SIZE];
    char hint[TESSARA_TEXT_SIZE];
} TessaraError;

/* Writes the texts of an error. */
TESSARA_BOUNDARY void Tessara_Describe(TessaraError* error) TESSARA_NOTHROW;

/* UTM. */
typedef struct TessaraUtm {
    int32_t zone;
    char hemisphere;
    double easting;
    double northing;
} TessaraUtm;

/* In the zone that is wanted, or the natural one for 0. */
TESSARA_BOUNDARY bool Tessara_Utm(double latitude, double longitude, int32_t zone, TessaraUtm* utm,
                                  TessaraError* error) TESSARA_NOTHROW;

/* Military references: a number each, whose order is that of zones, bands and squares, with a square before
 * the squares in it. */
typedef uint64_t TessaraGridref;

enum { TESSARA_GRIDREF_SIZE = 16 }; /* 32UPU9160334791 and its end */

/* The nearest metre. */
TESSARA_BOUNDARY bool Tessara_Gridref(double latitude, double longitude, TessaraGridref* gridref,
                                      TessaraError* error) TESSARA_NOTHROW;
/* The square that the position lies in: of 1, 10, 100, 1000, 10000 or 100000 metres. */
TESSARA_BOUNDARY bool Tessara_Square(double latitude, double longitude, int32_t metres,
                                     TessaraGridref* gridref, TessaraError* error) TESSARA_NOTHROW;
/* The larger square around a reference; the reference itself if it isn't smaller. */
TESSARA_BOUNDARY bool Tessara_SquareAround(TessaraGridref gridref, int32_t metres, TessaraGridref* square,
                                           TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_ReadGridref(const char* text, TessaraGridref* gridref,
                                          TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY void Tessara_WriteGridref(TessaraGridref gridref,
                                           char text[TESSARA_GRIDREF_SIZE]) TESSARA_NOTHROW;
/* Whether the bits are a reference of a place on the earth. */
TESSARA_BOUNDARY bool Tessara_IsGridref(TessaraGridref bits) TESSARA_NOTHROW;
/* The last of the references that lie in a square; the square itself is the first. */
TESSARA_BOUNDARY TessaraGridref Tessara_LastIn(TessaraGridref square) TESSARA_NOTHROW;
TESSARA_BOUNDARY int32_t Tessara_SideOf(TessaraGridref gridref) TESSARA_NOTHROW;

/* A position in any system that has a name, on any datum: its record. */
typedef struct TessaraPosition {
    uint64_t words[8];
} TessaraPosition;

TESSARA_BOUNDARY bool Tessara_ReadPosition(const char* text, TessaraPosition* position,
                                           TessaraError* error) TESSARA_NOTHROW;
/* A text that Tessara_ReadPosition reads back to the same bits. */
TESSARA_BOUNDARY void Tessara_WritePosition(const TessaraPosition* position,
                                            char text[TESSARA_TEXT_SIZE]) TESSARA_NOTHROW;
/* The position of bytes that come from elsewhere. */
TESSARA_BOUNDARY bool Tessara_CheckPosition(const TessaraPosition* bytes, TessaraPosition* position,
                                            TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_PositionAt(double latitude, double longitude, TessaraPosition* position,
                                         TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_PositionOfGridref(TessaraGridref gridref, TessaraPosition* position,
                                                TessaraError* error) TESSARA_NOTHROW;
/* Latitude and longitude on WGS84. */
TESSARA_BOUNDARY void Tessara_DegreesOf(const TessaraPosition* position, double degrees[2]) TESSARA_NOTHROW;
/* What two positions are compared by: the same for all ways to write down one place, -180 and 180 degrees
 * included. */
TESSARA_BOUNDARY void Tessara_PlaceOf(const TessaraPosition* position, double place[2]) TESSARA_NOTHROW;
/* The field of a name, such as "easting"; false, without an error, for a system that has no number of this
 * name. */
TESSARA_BOUNDARY bool Tessara_NumberOf(const TessaraPosition* position, const char* field,
                                       double* number) TESSARA_NOTHROW;
/* SYSTEM[:PARAMETERS]@DATUM. */
TESSARA_BOUNDARY void Tessara_ReferenceOf(const TessaraPosition* position,
                                          char text[TESSARA_TEXT_SIZE]) TESSARA_NOTHROW;

/* A conversion between two references, SYSTEM[:PARAMETERS][@DATUM], that is prepared once. */
typedef struct TessaraConversion TessaraConversion;

TESSARA_BOUNDARY TessaraConversion* Tessara_NewConversion(const char* from, const char* to,
                                                          TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY void Tessara_FreeConversion(TessaraConversion* conversion) TESSARA_NOTHROW;
/* The name of a reference in its one spelling. */
TESSARA_BOUNDARY bool Tessara_CheckReference(const char* name, char text[TESSARA_TEXT_SIZE],
                                             TessaraError* error) TESSARA_NOTHROW;

/* Of the two numbers that say where a position of the source is: latitude and longitude, or northing and
 * easting. */
TESSARA_BOUNDARY bool Tessara_Convert(const TessaraConversion* conversion, double north, double east,
                                      TessaraPosition* position, TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_ConvertPosition(const TessaraConversion* conversion,
                                              const TessaraPosition* source, TessaraPosition* position,
                                              TessaraError* error) TESSARA_NOTHROW;
/* The two numbers of the target alone. */
TESSARA_BOUNDARY bool Tessara_ConvertNumbers(const TessaraConversion* conversion, double north, double east,
                                             double numbers[2], TessaraError* error) TESSARA_NOTHROW;
/* The same for arrays, and the zones where the target has some. A row that fails is NaN; the first such row
 * is returned with its error, or `count`. */
TESSARA_BOUNDARY size_t Tessara_ConvertArrays(const TessaraConversion* conversion, const double* norths,
                                              const double* easts, size_t count, double* targetNorths,
                                              double* targetEasts, double* zones,
                                              TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_HasZones(const TessaraConversion* conversion) TESSARA_NOTHROW;

/* Geodesics on the ellipsoid of a datum. */
TESSARA_BOUNDARY bool Tessara_Datum(const char* name, int32_t* datum, TessaraError* error) TESSARA_NOTHROW;
/* Distance, azimuth, azimuth back. */
TESSARA_BOUNDARY bool Tessara_Way(const double from[2], const double to[2], int32_t datum, double way[3],
                                  TessaraError* error) TESSARA_NOTHROW;
/* Latitude, longitude, azimuth back. */
TESSARA_BOUNDARY bool Tessara_End(const double from[2], double azimuth, double distance, int32_t datum,
                                  double end[3], TessaraError* error) TESSARA_NOTHROW;
enum { TESSARA_WGS84 = 2 };

/* Grid lines and zone borders in a window: south, west, north and east. Lines that a window cuts have several
 * parts, which are rows of their own. */
typedef struct TessaraLines TessaraLines;
typedef enum TessaraAxis { TESSARA_EAST, TESSARA_NORTH } TessaraAxis;

enum { TESSARA_NO_ZONE = INT32_MIN };

typedef struct TessaraLine {
    double value;
    const char* label;
    int32_t zones[2]; /* of a line of equal east value; on the two sides of a border */
    int32_t part;     /* from 1 */
    size_t placeCount;
} TessaraLine;

/* The lines on which the value of the axis is a multiple of the step. */
TESSARA_BOUNDARY TessaraLines* Tessara_GridLines(const char* system, const double window[4], TessaraAxis axis,
                                                 double step, TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY TessaraLines* Tessara_ZoneBorders(const char* system, const double window[4],
                                                   TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY void Tessara_FreeLines(TessaraLines* lines) TESSARA_NOTHROW;
/* False behind the last. */
TESSARA_BOUNDARY bool Tessara_LineAt(const TessaraLines* lines, size_t index,
                                     TessaraLine* line) TESSARA_NOTHROW;
TESSARA_BOUNDARY void Tessara_PlaceAt(const TessaraLines* lines, size_t index, size_t place,
                                      double degrees[2]) TESSARA_NOTHROW;

/* Reads texts as people type them: in any system that can be told from a text, or in the one that is named.
 */
typedef struct TessaraReader TessaraReader;

TESSARA_BOUNDARY TessaraReader* Tessara_NewReader(const char* reference, TessaraError* error) TESSARA_NOTHROW;
TESSARA_BOUNDARY void Tessara_FreeReader(TessaraReader* reader) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_Parse(const TessaraReader* reader, const char* text, TessaraPosition* position,
                                    TessaraError* error) TESSARA_NOTHROW;

typedef struct TessaraFinding {
    bool isPosition;
    char code[TESSARA_TEXT_SIZE];
    char reason[TESSARA_TEXT_SIZE];
    size_t begin; /* bytes of the piece */
    size_t end;
} TessaraFinding;

TESSARA_BOUNDARY bool Tessara_Check(const TessaraReader* reader, const char* text, TessaraFinding* finding,
                                    TessaraError* error) TESSARA_NOTHROW;
/* The text of a position as the library writes it: one, or north and east with a comma between them. */
TESSARA_BOUNDARY bool Tessara_Format(const TessaraPosition* position, char text[TESSARA_TEXT_SIZE],
                                     TessaraError* error) TESSARA_NOTHROW;

/* Systems and datums as rows, in the order of their numbers; false behind the last. */
enum { TESSARA_FIELD_COUNT = 8 };

typedef struct TessaraSystem {
    int32_t number;
    const char* name;
    const char* unit;
    const char* fields[TESSARA_FIELD_COUNT];
    size_t fieldCount;
} TessaraSystem;

typedef struct TessaraDatumRow {
    int32_t number;
    const char* name;
    const char* ellipsoid; /* null for one without a name */
    double a, f, dx, dy, dz;
} TessaraDatumRow;

TESSARA_BOUNDARY bool Tessara_SystemAt(size_t index, TessaraSystem* system) TESSARA_NOTHROW;
TESSARA_BOUNDARY bool Tessara_DatumAt(size_t index, TessaraDatumRow* datum) TESSARA_NOTHROW;
