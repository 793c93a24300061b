/* Prints the points of a picture as CSV, by the interface for C. */
#include <stdio.h>
#include <string.h>

#include "interface/quorvex_c.h"

static int fail(quorvex_error error) {
  const char* detail = quorvex_error_detail();
  fprintf(stderr, "detect_points_c: %s (%s)\n", quorvex_error_text(error), detail);
  return 1;
}

static int print_points(const quorvex_image* image) {
  quorvex_points* points = quorvex_points_create();
  quorvex_error error = points ? quorvex_detect(image, NULL, points) : QUORVEX_ERROR_MEMORY;
  quorvex_point p;
  size_t i;
  for (i = 0; error == QUORVEX_OK && i < quorvex_points_count(points); ++i) {
    error = quorvex_points_get(points, i, &p);
    printf("%d,%d,%d,%.9g,%.9g\n", p.id, p.row, p.col, p.x, p.y);
  }
  quorvex_points_free(points);
  return error == QUORVEX_OK ? 0 : fail(error);
}

static int print_marks(const quorvex_image* image) {
  quorvex_marks* marks = NULL;
  quorvex_error error = quorvex_detect_precise(image, NULL, &marks);
  quorvex_mark m;
  size_t i;
  for (i = 0; error == QUORVEX_OK && i < quorvex_marks_count(marks); ++i) {
    error = quorvex_marks_get(marks, i, &m);
    printf("%d,%d,%d,%.9g,%.9g\n", m.id, m.row, m.col, m.x, m.y);
  }
  quorvex_marks_free(marks);
  return error == QUORVEX_OK ? 0 : fail(error);
}

int main(int argc, char** argv) {
  const int precise = argc == 3 && strcmp(argv[2], "--precise") == 0;
  quorvex_picture* picture = NULL;
  quorvex_image image;
  quorvex_error error;
  int result;
  if (argc != 2 && !precise) {
    fprintf(stderr, "usage: detect_points_c BOARD.bmp [--precise]\n");
    return 2;
  }
  error = quorvex_read_bmp(argv[1], &picture);
  if (error == QUORVEX_OK) error = quorvex_picture_image(picture, &image);
  if (error != QUORVEX_OK) return fail(error);
  result = precise ? print_marks(&image) : print_points(&image);
  quorvex_picture_free(picture);
  return result;
}
