// A scale of colours that rises in lightness all the way, so that it reads with any colour vision,
// in print, and on light and dark pictures alike (the map named viridis, van der Walt and Smith 2015).

const ANCHORS = [
  [68, 1, 84], [72, 40, 120], [62, 73, 137], [49, 104, 142], [38, 130, 142],
  [31, 158, 137], [53, 183, 121], [110, 206, 88], [181, 222, 43], [253, 231, 37],
];
const DARK_PART = 0.5;  // of the scale; those colours get a light rim

// Of points that have no value.
const NO_VALUE_COLOUR = "rgb(225 225 225)";

function colourAt(part) {
  const place = Math.min(1, Math.max(0, part)) * (ANCHORS.length - 1);
  const below = Math.min(Math.floor(place), ANCHORS.length - 2);
  const mix = ANCHORS[below].map((from, i) => (
    Math.round(from + (ANCHORS[below + 1][i] - from) * (place - below))));
  return `rgb(${mix.join(" ")})`;
}

// The smallest of 1, 2, 5, 10, ... times a power of ten that is not below the value.
function roundUp(value) {
  const power = 10 ** Math.floor(Math.log10(value));
  const step = [1, 2, 5, 10].find((candidate) => candidate * power >= value * (1 - 1e-9));
  return Number((step * power).toPrecision(1));
}

export class ColourScale {
  /** @param {number} largest value that the scale must reach [px]; not above 0: nothing to tell apart */
  constructor(largest) {
    this.top = largest > 0 ? roundUp(largest) : 1;
  }

  /** @param {?number} value pixels */
  colour(value) {
    return value === null ? NO_VALUE_COLOUR : colourAt(value / this.top);
  }

  /** Whether the colour needs a light rim to be seen on a dark picture. */
  isDark(value) {
    return value !== null && value / this.top < DARK_PART;
  }

  /** Stops for a drawing of the whole scale, from 0 to 1. */
  static stops() {
    return ANCHORS.map((_, i) => {
      const offset = i / (ANCHORS.length - 1);
      return { offset, colour: colourAt(offset) };
    });
  }
}
