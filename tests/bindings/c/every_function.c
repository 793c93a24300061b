/* A host in C99: every function of the interface once, and what it gives. Run in a folder of its
 * own. */
#include <math.h>
#include <stdio.h>
#include <string.h>

#include "interface/quorvex_c.h"

static int failures = 0;

static void expect(int holds, const char* what) {
  if (!holds) {
    fprintf(stderr, "failed: %s (%s)\n", what, quorvex_error_detail());
    ++failures;
  }
}

#define SIZE 64

static unsigned char pixels[SIZE * SIZE];

static void use_the_texts(void) {
  int code;
  for (code = QUORVEX_OK; code <= QUORVEX_ERROR_INTERNAL; ++code) {
    expect(strlen(quorvex_error_text(code)) > 0, "quorvex_error_text");
  }
  expect(strlen(quorvex_error_text(-1)) > 0, "quorvex_error_text of no code");
  expect(strcmp(quorvex_version(), QUORVEX_EXPECTED_VERSION) == 0, "quorvex_version");
}

static void use_the_points(void) {
  quorvex_points* points = quorvex_points_create();
  quorvex_point point = {7, 0, 0, 30.0f, 40.0f};
  quorvex_point found;
  expect(points != NULL, "quorvex_points_create");
  expect(quorvex_points_add(points, 200.0f, 50.0f) == QUORVEX_OK, "quorvex_points_add");
  expect(quorvex_points_add(points, 100.0f, 50.0f) == QUORVEX_OK, "quorvex_points_add");
  expect(quorvex_points_renumber(points, 1, 2) == QUORVEX_OK, "quorvex_points_renumber");
  expect(quorvex_points_query(points, 2, &found) == QUORVEX_OK && found.col == 1 &&
             found.x == 200.0f,
         "quorvex_points_query");
  expect(quorvex_points_append(points, &point) == QUORVEX_OK, "quorvex_points_append");
  point.x = 31.0f;
  expect(quorvex_points_alter(points, &point) == QUORVEX_OK, "quorvex_points_alter");
  expect(quorvex_points_get(points, 2, &found) == QUORVEX_OK && found.id == 7 && found.x == 31.0f,
         "quorvex_points_get");
  expect(quorvex_points_delete_at(points, 35.0f, 45.0f) == QUORVEX_OK, "quorvex_points_delete_at");
  expect(quorvex_points_count(points) == 2, "quorvex_points_count");
  expect(quorvex_points_rearrange_left(points, 2) == QUORVEX_OK, "quorvex_points_rearrange_left");
  expect(quorvex_points_rearrange_right(points, 1) == QUORVEX_OK, "quorvex_points_rearrange_right");
  expect(quorvex_points_get(points, 0, &found) == QUORVEX_OK, "quorvex_points_get");
  expect(quorvex_points_delete(points, found.id) == QUORVEX_OK, "quorvex_points_delete");
  expect(quorvex_points_clear(points) == QUORVEX_OK && quorvex_points_count(points) == 0,
         "quorvex_points_clear");
  quorvex_points_free(points);
}

static void use_the_pictures(const quorvex_image* image) {
  static const unsigned char colours[6] = {10, 20, 30, 255, 255, 255};
  const quorvex_colour_image colour = {colours, 2, 1, 6, 24};
  unsigned char grey[2];
  quorvex_picture* picture = NULL;
  quorvex_image read;
  expect(quorvex_convert_to_grey(&colour, grey) == QUORVEX_OK && grey[0] == 21 && grey[1] == 255,
         "quorvex_convert_to_grey");
  expect(quorvex_write_bmp("every_function.bmp", image) == QUORVEX_OK, "quorvex_write_bmp");
  expect(quorvex_read_bmp("every_function.bmp", &picture) == QUORVEX_OK, "quorvex_read_bmp");
  expect(quorvex_picture_image(picture, &read) == QUORVEX_OK && read.width == SIZE &&
             read.height == SIZE && memcmp(read.pixels, pixels, sizeof pixels) == 0,
         "quorvex_picture_image");
  quorvex_picture_free(picture);
}

/* A picture without a target. */
static void use_the_detections(const quorvex_image* image) {
  quorvex_detect_options options;
  quorvex_precise_options precise;
  quorvex_points* points = quorvex_points_create();
  quorvex_marks* marks = NULL;
  quorvex_mark mark;
  quorvex_facts facts;
  const quorvex_position position = {20.0, 30.0};
  quorvex_refined_point refined;
  quorvex_detect_options_init(&options);
  expect(options.row_span == 20 && options.column_span == 20 && options.row_steps == 300,
         "quorvex_detect_options_init");
  expect(quorvex_detect(image, &options, points) == QUORVEX_ERROR_NO_TARGET, "quorvex_detect");
  expect(strlen(quorvex_error_detail()) > 0, "quorvex_error_detail");
  quorvex_precise_options_init(&precise);
  expect(precise.colour == QUORVEX_MARKS_EITHER && precise.board_rows == 0,
         "quorvex_precise_options_init");
  expect(quorvex_detect_precise(image, &precise, &marks) == QUORVEX_ERROR_NO_TARGET,
         "quorvex_detect_precise");
  expect(marks == NULL && quorvex_marks_count(marks) == 0, "quorvex_marks_count");
  expect(quorvex_marks_get(marks, 0, &mark) == QUORVEX_ERROR_ARGUMENT, "quorvex_marks_get");
  expect(quorvex_marks_facts(marks, &facts) == QUORVEX_ERROR_ARGUMENT, "quorvex_marks_facts");
  quorvex_marks_free(marks);
  expect(quorvex_refine_marks(image, &position, 1, NULL, &refined) == QUORVEX_OK &&
             !refined.is_refined && fabs(refined.x - 20.0) < 1e-9 && strlen(refined.reason) > 0,
         "quorvex_refine_marks");
  quorvex_points_free(points);
}

int main(void) {
  quorvex_image image;
  size_t i;
  for (i = 0; i < sizeof pixels; ++i) {
    pixels[i] = (unsigned char)(i % 251);
  }
  image.pixels = pixels;
  image.width = SIZE;
  image.height = SIZE;
  image.stride = SIZE;
  use_the_texts();
  use_the_points();
  use_the_pictures(&image);
  use_the_detections(&image);
  return failures == 0 ? 0 : 1;
}
