/** @file
 * Quorvex for C: both detections, lists of points and BMP files. Compiles as C99 and as C++.
 *
 * Images have row 0 at the top, here as everywhere; x runs to the right and y down, and whole
 * numbers are the middles of pixels. (The host's detection works on rows from the bottom up; the
 * copy it needs is made inside.)
 *
 * Ownership. A pixel, an array or a text that a caller passes stays the caller's and is only read,
 * within the call. Three kinds of objects belong to the caller from the function that makes them to
 * the one that frees them: quorvex_points, quorvex_marks and quorvex_picture. To free a null
 * pointer does nothing. What points into an object is valid until the object changes or is freed.
 * Memory is never freed by the other side: the caller does not free() what came from here.
 *
 * Errors. Functions that can fail return a quorvex_error: QUORVEX_OK, or why not. Then nothing has
 * changed: neither lists nor results, except that a file which could not be written may be there in
 * part. quorvex_error_text() is the meaning of a code in words; quorvex_error_detail() says more of
 * the calling thread's last failure: which argument, what was expected, what was given, or why no
 * target was found. No exception leaves a function, and none shows a message box.
 *
 * Threads. Every function runs on the caller's thread. Several threads may call at the same time,
 * with objects of their own; an object that nobody changes may be read by several.
 *
 * Files. quorvex_detect() leaves its diagnostic pictures ("./ProImage.bmp" and others) in the
 * current directory of the process, as the library always does, and three lists in the folder "D:/"
 * where there is one; what cannot be written is let go. A program that does not want them there
 * makes a folder for them the current one before. No other function writes a file that it is not
 * told to. File names are in the process's code page on Windows. */
#ifndef QUORVEX_INTERFACE_QUORVEX_C_H_
#define QUORVEX_INTERFACE_QUORVEX_C_H_

#include <stddef.h>

/** In front of the functions that the library exports. */
#if !defined(_WIN32)
#define QUORVEX_C_API __attribute__((visibility("default")))
#elif defined(QUORVEX_C_STATIC)
#define QUORVEX_C_API
#elif defined(QUORVEX_BUILDING_C)
#define QUORVEX_C_API __declspec(dllexport)
#else
#define QUORVEX_C_API __declspec(dllimport)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** What a function that can fail returns. */
typedef enum quorvex_error {
  QUORVEX_OK = 0,              /**< done */
  QUORVEX_ERROR_ARGUMENT = 1,  /**< a null pointer, or a number out of its range */
  QUORVEX_ERROR_SIZE = 2,      /**< an image of a size that the function does not take */
  QUORVEX_ERROR_NO_TARGET = 3, /**< no target was found in the image */
  QUORVEX_ERROR_NO_POINT = 4,  /**< the list has no such point */
  QUORVEX_ERROR_NO_GRID = 5,   /**< the points are not the grid that they are to be numbered as */
  QUORVEX_ERROR_FILE = 6,      /**< a file cannot be opened, read or written */
  QUORVEX_ERROR_FORMAT = 7,    /**< a file is not what its name or the function says */
  QUORVEX_ERROR_MEMORY = 8,    /**< memory ran out */
  QUORVEX_ERROR_INTERNAL = 9   /**< a defect of this library */
} quorvex_error;

/** A text that is always there, also for a number that is no code. */
QUORVEX_C_API const char* quorvex_error_text(int error);

/** A sentence on the last failure of the calling thread, empty when its last call that can fail did
 * not. Valid until the thread's next call that can fail. At most 255 bytes. */
QUORVEX_C_API const char* quorvex_error_detail(void);

/** Three numbers with dots between them, for example "0.2.0". */
QUORVEX_C_API const char* quorvex_version(void);

/* ---- Images -------------------------------------------------------------------------------- */

/** 8-bit grey pixels. */
typedef struct quorvex_image {
  const unsigned char* pixels; /**< the first pixel of the top row */
  int width;                   /**< pixels */
  int height;                  /**< pixels */
  ptrdiff_t stride; /**< bytes from a row to the next below: the width or more; or minus that,
                       for rows that run upwards in memory */
} quorvex_image;

/** Blue, green and red, or blue, green, red and one byte that is not looked at. */
typedef struct quorvex_colour_image {
  const unsigned char* pixels; /**< the first pixel of the top row */
  int width;                   /**< pixels */
  int height;                  /**< pixels */
  ptrdiff_t stride;            /**< bytes from a row to the next below, as above */
  int bits_per_pixel;          /**< 24 or 32 */
} quorvex_colour_image;

/** Fills `grey`, width * height bytes without gaps between rows, by the weights of ITU-R BT.601;
 * the sum is cut, not rounded. Width and height are 1 to 32768 (QUORVEX_ERROR_ARGUMENT). */
QUORVEX_C_API quorvex_error quorvex_convert_to_grey(const quorvex_colour_image* image,
                                                    unsigned char* grey);

/* ---- Lists of points ----------------------------------------------------------------------- */

/** A point of a list. */
typedef struct quorvex_point {
  int id;  /**< row * (number of columns) + col + 1; -1 for a point without a place in the grid */
  int row; /**< from 0 at the top; -1 when unknown */
  int col; /**< from 0 at the left; -1 when unknown */
  float x; /**< pixels */
  float y; /**< pixels */
} quorvex_point;

/** A list of points. */
typedef struct quorvex_points quorvex_points;

/** An empty list; null when memory ran out. */
QUORVEX_C_API quorvex_points* quorvex_points_create(void);

/** Frees the list. */
QUORVEX_C_API void quorvex_points_free(quorvex_points* points);

/** How many points the list holds; 0 for a null pointer. */
QUORVEX_C_API size_t quorvex_points_count(const quorvex_points* points);

/** Copies a point; indices run from 0 to the count - 1. */
QUORVEX_C_API quorvex_error quorvex_points_get(const quorvex_points* points, size_t index,
                                               quorvex_point* point);

/** Appends a copy of the point. */
QUORVEX_C_API quorvex_error quorvex_points_append(quorvex_points* points,
                                                  const quorvex_point* point);

/** Removes all points. */
QUORVEX_C_API quorvex_error quorvex_points_clear(quorvex_points* points);

/** Copies the first point with that id. QUORVEX_ERROR_NO_POINT when there is none. */
QUORVEX_C_API quorvex_error quorvex_points_query(const quorvex_points* points, int id,
                                                 quorvex_point* point);

/** Removes every point with that id. QUORVEX_ERROR_NO_POINT when there is none. */
QUORVEX_C_API quorvex_error quorvex_points_delete(quorvex_points* points, int id);

/** Removes every point less than 9 pixels from (x, y) both in x and in y. QUORVEX_ERROR_NO_POINT
 * when there is none. */
QUORVEX_C_API quorvex_error quorvex_points_delete_at(quorvex_points* points, float x, float y);

/** Appends a point at (x, y) with id, row and col -1. */
QUORVEX_C_API quorvex_error quorvex_points_add(quorvex_points* points, float x, float y);

/** Sets row, col, x and y of the first point with the id that `point` has. QUORVEX_ERROR_NO_POINT
 * when there is none. */
QUORVEX_C_API quorvex_error quorvex_points_alter(quorvex_points* points,
                                                 const quorvex_point* point);

/** Renumbers a complete grid of rows x columns points, 1 to 32768 each, by its geometry alone: row
 * 0 has the smallest y, column 0 the smallest x; the list is then ordered column by column. The
 * grid's spacing must shrink from its middle outwards, as in a fisheye image.
 * QUORVEX_ERROR_NO_GRID when the points are not such a grid. */
QUORVEX_C_API quorvex_error quorvex_points_renumber(quorvex_points* points, int rows, int columns);

/** Renumbers a grid of `count` columns, 1 to 32768, for the left camera: column k
 * becomes row k, and the point with the largest y in it gets column 0; id = row * count + col + 1.
 * Points of other columns are dropped. Where a column does not hold `count` points, the left one
 * counts its columns from 0 at the largest y up, the right one from count - 1 at the smallest y
 * down. QUORVEX_ERROR_NO_GRID when no point would be left. */
QUORVEX_C_API quorvex_error quorvex_points_rearrange_left(quorvex_points* points, int count);

/** The same for the right camera. */
QUORVEX_C_API quorvex_error quorvex_points_rearrange_right(quorvex_points* points, int count);

/* ---- The host's detection ------------------------------------------------------------------ */

/** How far quorvex_detect() looks. */
typedef struct quorvex_detect_options {
  int row_span;    /**< rows looked for beyond the centre row, 0 to 1000; 20 serves most targets */
  int column_span; /**< the same for columns */
  int row_steps; /**< pixels that a row may run from one mark to the next, 1 to 32768; at least the
                    largest spacing + 10, and above 121; 300 serves most targets */
} quorvex_detect_options;

/** 20, 20 and 300. */
QUORVEX_C_API void quorvex_detect_options_init(quorvex_detect_options* options);

/** Finds the marks of the target and puts them into the list in place of what it held, ordered by
 * id. Width and height are multiples of 4 (QUORVEX_ERROR_SIZE). `options` may be null. The target
 * is bright (80 and above) around the image's centre, its surroundings and its marks are darker
 * than 80. */
QUORVEX_C_API quorvex_error quorvex_detect(const quorvex_image* image,
                                           const quorvex_detect_options* options,
                                           quorvex_points* points);

/* ---- The direct detection ------------------------------------------------------------------ */

/** Which marks are looked for. */
typedef enum quorvex_mark_colour {
  QUORVEX_MARKS_EITHER = 0, /**< dark marks are looked for first, light ones where there are none */
  QUORVEX_MARKS_DARK = 1,   /**< dark marks on a bright board */
  QUORVEX_MARKS_LIGHT = 2   /**< light marks on a dark board */
} quorvex_mark_colour;

/** What is known of the board, and what is wanted. */
typedef struct quorvex_precise_options {
  int colour;          /**< a quorvex_mark_colour */
  int predict_missing; /**< 1: also gives the places within the found rows and columns where no mark
                          was measured; of the whole board where its labels are fixed */
  int continuous_lines; /**< 1: the board's strokes may run through from crossing to crossing */
  int board_rows;       /**< marks in a column of the whole board, as it stands in the picture, 1 to
                           1000; 0 when the board is not known */
  int board_columns;    /**< marks in a row of it; 0 with board_rows */
} quorvex_precise_options;

/** Either colour, everything else 0. */
QUORVEX_C_API void quorvex_precise_options_init(quorvex_precise_options* options);

/** What a mark's position rests on. */
typedef enum quorvex_verdict {
  QUORVEX_MARK_MEASURED = 0, /**< measured on its strokes */
  /** measured, but on two arms only, or away from what the others say */
  QUORVEX_MARK_DOUBTFUL = 1,
  QUORVEX_MARK_PREDICTED = 2 /**< not seen; where the other marks say that it would be */
} quorvex_verdict;

/** A mark of the target. */
typedef struct quorvex_mark {
  int id;   /**< row * columns + col + 1, by the columns of the board where they are given, else by
               the largest column found */
  int row;  /**< from 0 at the top of what was found; of the board where has_fixed_rows */
  int col;  /**< from 0 at its left; of the board where has_fixed_columns */
  double x; /**< pixels */
  double y; /**< pixels */
  double cxx;       /**< covariance of x and y, square pixels */
  double cxy;       /**< with cxx */
  double cyy;       /**< with cxx */
  int seen_arms[4]; /**< 1 for each arm that was seen: towards the next column, the next row, the
                       column before, the row before */
  quorvex_verdict verdict; /**< what the position rests on */
} quorvex_mark;

/** What was learnt of the picture. The camera is a smooth map of rows and columns to pixels, which
 * one picture does not make a calibration: a mark of row r and column c is at (c, r * aspect, 0) on
 * the board and at X = rotation * (c, r * aspect, 0) + translation before the camera, in pitches of
 * the columns; at the angle a from the axis it is seen
 * focal_length * (a + k1 a^3 + k2 a^5 + k3 a^7) pixels from the centre. */
typedef struct quorvex_facts {
  double noise;          /**< grey levels, standard deviation */
  double stroke_width;   /**< pixels, median */
  double pitch;          /**< pixels, median distance of neighbours */
  double blur;           /**< pixels, standard deviation */
  double arm_length;     /**< pitches, from a mark's centre to the end of its arms */
  int has_light_marks;   /**< light marks on a dark board */
  int has_fixed_rows;    /**< row 0 is the first row of the board, which needs its size */
  int has_fixed_columns; /**< the same for column 0 */
  double rotation[9];    /**< row by row */
  double translation[3]; /**< pitches of the columns */
  double focal_length;   /**< pixels per radian */
  double k1;             /**< of the third power of the angle */
  double k2;             /**< of the fifth */
  double k3;             /**< of the seventh */
  double centre_x;       /**< pixels */
  double centre_y;       /**< pixels */
  double aspect;         /**< pitch of the rows over the pitch of the columns */
  /** pixels, robust standard deviation of the marks' coordinates from the camera */
  double residual;
} quorvex_facts;

/** The marks of a picture, and what was learnt of it. */
typedef struct quorvex_marks quorvex_marks;

/** Finds every visible mark of one target; image sizes are 16 and more, of any multiple. `options`
 * may be null. On success `*marks` is a new object with one mark or more, to be freed by the
 * caller. QUORVEX_ERROR_NO_TARGET otherwise; quorvex_error_detail() then says where the search
 * ended and why. Writes no file. */
QUORVEX_C_API quorvex_error quorvex_detect_precise(const quorvex_image* image,
                                                   const quorvex_precise_options* options,
                                                   quorvex_marks** marks);

/** Frees the marks. */
QUORVEX_C_API void quorvex_marks_free(quorvex_marks* marks);

/** How many marks there are, ordered by row, then by column; 0 for a null pointer. */
QUORVEX_C_API size_t quorvex_marks_count(const quorvex_marks* marks);

/** Copies a mark; indices run from 0 to the count - 1. */
QUORVEX_C_API quorvex_error quorvex_marks_get(const quorvex_marks* marks, size_t index,
                                              quorvex_mark* mark);

/** Copies what was learnt of the picture. */
QUORVEX_C_API quorvex_error quorvex_marks_facts(const quorvex_marks* marks, quorvex_facts* facts);

/** A position in a picture. */
typedef struct quorvex_position {
  double x; /**< pixels */
  double y; /**< pixels */
} quorvex_position;

/** A position that was measured again. */
typedef struct quorvex_refined_point {
  double x;        /**< pixels; where the point was when it is not refined */
  double y;        /**< pixels; likewise */
  double cxx;      /**< covariance, square pixels; 0 when the point is not refined */
  double cxy;      /**< with cxx */
  double cyy;      /**< with cxx */
  int is_refined;  /**< 1 when it was measured */
  char reason[96]; /**< why it is not, in words; empty when it is */
} quorvex_refined_point;

/** Measures points that lie within about 4 pixels of a mark, each by itself. `refined` is the
 * caller's array of `count` elements, in the order of `positions`. `options` may be null; its
 * colour is looked at only, and with QUORVEX_MARKS_EITHER dark marks are looked for. */
QUORVEX_C_API quorvex_error quorvex_refine_marks(const quorvex_image* image,
                                                 const quorvex_position* positions, size_t count,
                                                 const quorvex_precise_options* options,
                                                 quorvex_refined_point* refined);

/* ---- BMP files ----------------------------------------------------------------------------- */

/** A grey picture that was read. */
typedef struct quorvex_picture quorvex_picture;

/** Reads an uncompressed BMP file of 8 bits (with any palette), 24 or 32 bits as a grey picture, of
 * up to 32768 pixels a side. On success `*picture` is a new object, to be freed by the caller.
 * QUORVEX_ERROR_FILE when the file cannot be read, QUORVEX_ERROR_FORMAT when it is no such file,
 * ends too early or is larger. */
QUORVEX_C_API quorvex_error quorvex_read_bmp(const char* path, quorvex_picture** picture);

/** Frees the picture. */
QUORVEX_C_API void quorvex_picture_free(quorvex_picture* picture);

/** The picture's pixels, which stay the picture's. */
QUORVEX_C_API quorvex_error quorvex_picture_image(const quorvex_picture* picture,
                                                  quorvex_image* image);

/** Writes an 8-bit BMP file with a grey palette, replacing an existing file. QUORVEX_ERROR_FILE
 * when it cannot be written; what was there before may then be lost. */
QUORVEX_C_API quorvex_error quorvex_write_bmp(const char* path, const quorvex_image* image);

#ifdef __cplusplus
}
#endif

#endif /* QUORVEX_INTERFACE_QUORVEX_C_H_ */
