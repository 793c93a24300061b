// Moves of the view that the eye can follow: a short slide from where it is to where it goes, or none
// where the system asks for reduced motion.

import { placeBetween } from "./view_transform.js";

const SLIDE_MS = 160;

export class ViewSlide {
  /** @param {ViewTransform} transform */
  constructor(transform) {
    this.transform = transform;
    this.move = null;
    this.reducedMotion = matchMedia("(prefers-reduced-motion: reduce)");
  }

  get isUnderWay() {
    return this.move !== null;
  }

  stop() {
    this.move = null;
  }

  /** @param {function()} change of the transform; it starts where a slide under way would have ended */
  start(change) {
    const from = this.transform.place();
    if (this.move) {
      this.transform.setPlace(this.move.to);
    }
    change();
    this.move = null;
    if (!this.reducedMotion.matches) {
      this.move = { from, to: this.transform.place(), start: performance.now() };
      this.transform.setPlace(from);
    }
  }

  /** @param {number} time of the frame [ms] */
  advance(time) {
    if (!this.move) {
      return;
    }
    const { from, to, start } = this.move;
    const part = Math.min(1, Math.max(0, (time - start) / SLIDE_MS));
    if (part < 1) {
      this.transform.setPlace(placeBetween(from, to, 1 - (1 - part) ** 3));
    } else {
      this.transform.setPlace(to);
      this.move = null;
    }
  }
}
