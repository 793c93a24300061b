// Where the picture lies in its view. Screen lengths are CSS pixels from the view's top left corner;
// image coordinates have integers at pixel centres, so a picture covers -0.5 to width - 0.5.

const LARGEST_SCALE = 200;     // screen px per image px: some pixels fill the view
const SMALLEST_OF_FIT = 0.25;  // of the scale that shows the whole picture
const FIT_MARGIN = 12;         // screen px around the whole picture
const KEPT_IN_VIEW = 48;       // screen px of the picture that cannot be moved out

export class ViewTransform {
  constructor() {
    this.viewWidth = 1;
    this.viewHeight = 1;
    this.imageWidth = 1;
    this.imageHeight = 1;
    this.scale = 1;
    this.left = 0;  // screen place of image coordinate 0
    this.top = 0;
    this.isFitted = true;
  }

  get fitScale() {
    const width = Math.max(1, this.viewWidth - 2 * FIT_MARGIN);
    const height = Math.max(1, this.viewHeight - 2 * FIT_MARGIN);
    return Math.min(width / this.imageWidth, height / this.imageHeight, LARGEST_SCALE);
  }

  setImage(width, height) {
    this.imageWidth = Math.max(1, width);
    this.imageHeight = Math.max(1, height);
    this.fit();
  }

  /** A view of another size keeps what is in its middle, or the whole picture. */
  setView(width, height) {
    const [x, y] = this.toImage(this.viewWidth / 2, this.viewHeight / 2);
    this.viewWidth = Math.max(1, width);
    this.viewHeight = Math.max(1, height);
    if (this.isFitted) {
      this.fit();
    } else {
      this.centreOn(x, y, this.scale);
    }
  }

  toScreen(x, y) {
    return [this.left + x * this.scale, this.top + y * this.scale];
  }

  toImage(screenX, screenY) {
    return [(screenX - this.left) / this.scale, (screenY - this.top) / this.scale];
  }

  fit() {
    this.centreOn((this.imageWidth - 1) / 2, (this.imageHeight - 1) / 2, this.fitScale);
    this.isFitted = true;
  }

  /** What is at the given screen place stays there. */
  zoomAt(screenX, screenY, factor) {
    const [x, y] = this.toImage(screenX, screenY);
    this.scale = this.allowedScale(this.scale * factor);
    this.left = screenX - x * this.scale;
    this.top = screenY - y * this.scale;
    this.keepInView();
  }

  panBy(screenX, screenY) {
    this.left += screenX;
    this.top += screenY;
    this.keepInView();
  }

  centreOn(x, y, scale) {
    this.scale = this.allowedScale(scale);
    this.left = this.viewWidth / 2 - x * this.scale;
    this.top = this.viewHeight / 2 - y * this.scale;
    this.keepInView();
  }

  allowedScale(scale) {
    return Math.min(LARGEST_SCALE, Math.max(this.fitScale * SMALLEST_OF_FIT, scale));
  }

  keepInView() {
    this.isFitted = false;
    this.left = keepOverlap(this.left, this.imageWidth * this.scale, this.viewWidth);
    this.top = keepOverlap(this.top, this.imageHeight * this.scale, this.viewHeight);
  }

  /** A copy of the place, to move from and to. */
  place() {
    return { scale: this.scale, left: this.left, top: this.top, isFitted: this.isFitted };
  }

  setPlace(place) {
    Object.assign(this, place);
  }
}

function keepOverlap(start, length, viewLength) {
  const kept = Math.min(KEPT_IN_VIEW, length / 2, viewLength / 2);
  return Math.min(viewLength - kept, Math.max(kept - length, start));
}

/**
 * Between two places: the zoom is even in time, and the point that both show at the same screen place
 * stays there, as in a zoom at the pointer.
 */
export function placeBetween(from, to, part) {
  const scale = from.scale * (to.scale / from.scale) ** part;
  const change = to.scale - from.scale;
  const progress = Math.abs(change) < 1e-9 * from.scale ? part : (scale - from.scale) / change;
  return {
    scale,
    left: from.left + (to.left - from.left) * progress,
    top: from.top + (to.top - from.top) * progress,
    isFitted: to.isFitted,
  };
}
