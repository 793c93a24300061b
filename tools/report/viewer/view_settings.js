// What a person chose to see; it holds for all pictures while the page is open. Magnifications that
// were not chosen fit the picture.

import { ColourScale } from "./colour_scale.js";
import { deviationEllipse, isGuessed, residualLength } from "./page_data.js";

/** The steps of the sliders: 1, 2, 5, 10, ... */
export const ARROW_STEPS = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000];
export const ELLIPSE_STEPS = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000];

const ARROW_SHARE = 0.5;    // of the spacing that the longest arrow may take
const ELLIPSE_SHARE = 0.25; // of the spacing, a middling axis

export class ViewSettings {
  constructor() {
    this.colourBy = "residual";
    this.label = "id";
    this.hidden = new Set();  // names of layers
    this.arrows = null;       // a magnification, or null for one that fits
    this.ellipses = null;
  }
}

function largestStep(steps, length, room) {
  const fitting = steps.filter((step) => step * length <= room);
  return fitting.at(-1) ?? steps[0];
}

/** What the colours of a picture stand for, and magnifications that suit it. */
export class PictureScales {
  /**
   * @param {Point[]} points
   * @param {number} spacing a middling one between points [px]
   */
  constructor(points, spacing) {
    const seen = points.filter((point) => !isGuessed(point));
    const residuals = seen.map(residualLength).filter((length) => length !== null);
    const axes = points
      .filter((point) => point.covariance)
      .map((point) => deviationEllipse(point.covariance).long)
      .sort((a, b) => a - b);
    this.hasResiduals = residuals.length > 0;
    this.hasCovariances = axes.length > 0;
    this.residual = new ColourScale(Math.max(0, ...residuals));
    this.covariance = new ColourScale(axes[Math.floor(axes.length * 0.98)] ?? 0);
    this.arrows = largestStep(ARROW_STEPS, Math.max(0, ...residuals), spacing * ARROW_SHARE);
    this.ellipses = largestStep(ELLIPSE_STEPS, axes[Math.floor(axes.length / 2)] ?? 0,
      spacing * ELLIPSE_SHARE);
  }

  /** The scale that is shown: the chosen one, where the picture has it. */
  colourBy(settings) {
    if (settings.colourBy === "covariance" && this.hasCovariances) {
      return "covariance";
    }
    return this.hasResiduals || !this.hasCovariances ? "residual" : "covariance";
  }
}

/** The number that a point's colour stands for [px], or null. */
export function colouredValue(point, colourBy) {
  if (colourBy === "residual") {
    return residualLength(point);
  }
  return point.covariance ? deviationEllipse(point.covariance).long : null;
}
