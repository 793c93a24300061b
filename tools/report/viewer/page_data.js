// The data that the command wrote into this page. A page may hold hundreds of pictures in tens of
// megabytes of text, so a picture's numbers are parsed when they are asked for, and of the image
// texts only those that are shown are read.

/**
 * @typedef {Object} Point
 * @property {number} id
 * @property {number} row
 * @property {number} col
 * @property {number} x pixels; integers are pixel centres
 * @property {number} y pixels, downwards
 * @property {"seen"|"filled"|"measured"|"doubtful"|"predicted"} kind
 * @property {[number, number]} [residual] listed minus modelled position, pixels
 * @property {[number, number, number]} [covariance] xx, xy, yy, square pixels
 */

/** What a person calls each verdict, with a mark that does not depend on colour. */
export const VERDICTS = {
  good: { text: "good", mark: "\u2713" },
  check: { text: "to check", mark: "!" },
  failed: { text: "failed", mark: "\u2715" },
};

/** Whether the point's place follows from other points, and nothing was seen there. */
export function isGuessed(point) {
  return point.kind === "filled" || point.kind === "predicted";
}

/** Length of a point's residual [px], or null. */
export function residualLength(point) {
  return point.residual ? Math.hypot(point.residual[0], point.residual[1]) : null;
}

/** Axes of the ellipse of one standard deviation [px] and the direction of the longer one. */
export function deviationEllipse([xx, xy, yy]) {
  const mean = (xx + yy) / 2;
  const spread = Math.hypot((xx - yy) / 2, xy);
  return {
    long: Math.sqrt(Math.max(0, mean + spread)),
    short: Math.sqrt(Math.max(0, mean - spread)),
    angle: Math.atan2(2 * xy, xx - yy) / 2,
  };
}

export class PageData {
  constructor() {
    this.run = JSON.parse(document.getElementById("run").textContent);
    this.blocks = [];
    for (const script of document.querySelectorAll("script[data-picture]")) {
      const index = Number(script.dataset.picture);
      this.blocks[index] ??= { numbers: null, images: new Map() };
      if (script.dataset.image) {
        this.blocks[index].images.set(script.dataset.image, script);
      } else {
        this.blocks[index].numbers = script;
      }
    }
    this.summaries = this.blocks.map((block, index) => {
      const { name, verdict, message, found, filled, missing, worst } = this.picture(index);
      return { index, name, verdict, message, found, filled, missing, worst };
    });
  }

  get count() {
    return this.blocks.length;
  }

  get isDirect() {
    return this.run.detection === "direct";
  }

  /** Everything about one picture; parsed anew at each call. */
  picture(index) {
    return JSON.parse(this.blocks[index].numbers.textContent);
  }

  /** @returns {string} a data: address, or "" when the page has no such image */
  imageAddress(index, name) {
    return this.blocks[index].images.get(name)?.textContent ?? "";
  }
}
