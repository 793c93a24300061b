// What a person chose to see; it holds for all pictures while the page is open. Magnifications that
// were not chosen fit the picture.

import { ColourScale } from "./colour_scale.js";
import { deviationEllipse, isGuessed, residualLength } from "./page_data.js";

/** The steps of the sliders: 1, 2, 5, 10, ... */
export const ARROW_STEPS = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000];
export const ELLIPSE_STEPS = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000,
  20000, 50000];

const ARROW_SHARE = 0.5;    // of the spacing that the longest arrow may take
const ELLIPSE_SHARE = 0.4;  // of the spacing, half the largest ellipse

export class ViewSettings {
  constructor() {
    this.colourBy = "residual";
    this.label = "id";
    this.hidden = new Set();  // names of layers
    this.arrows = null;       // a magnification, or null for one that fits
    this.ellipses = null;
  }
}

const STRAY = 5;  // times the middle one; larger values do not stretch a scale

// The largest value that a scale has to show: one stray point must not make all others look alike.
function typicalLargest(values) {
  const sorted = [...values].sort((a, b) => a - b);
  const middle = sorted[Math.floor(sorted.length / 2)] ?? 0;
  return Math.min(sorted.at(-1) ?? 0, STRAY * middle);
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
      .map((point) => deviationEllipse(point.covariance).long);
    const [residual, axis] = [typicalLargest(residuals), typicalLargest(axes)];
    this.hasResiduals = residuals.length > 0;
    this.hasCovariances = axes.length > 0;
    this.residual = new ColourScale(residual);
    this.covariance = new ColourScale(axis);
    this.arrows = largestStep(ARROW_STEPS, residual, spacing * ARROW_SHARE);
    this.ellipses = largestStep(ELLIPSE_STEPS, axis, spacing * ELLIPSE_SHARE);
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
