// Marking of what lies outside the target's outline.
#ifndef QUORVEX_PREPROCESS_OUTSIDE_REGION_H_
#define QUORVEX_PREPROCESS_OUTSIDE_REGION_H_

namespace quorvex {

// Paints with grey level 50 every pixel that is reached from the image border along its row or
// column without crossing the outline (128); a line without outline is painted throughout. Concave
// pockets that no straight walk reaches stay as they are. Rows are exactly width bytes. Always
// true.
bool MarkOutsideRegion(unsigned char* image, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTSIDE_REGION_H_
