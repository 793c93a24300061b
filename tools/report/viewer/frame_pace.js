// Where frames come slowly, labels, which take longest to draw, are left out until the view rests.

const SLOW_MS = 34;         // between frames: less than 30 a second
const PAUSE_MS = 400;       // between frames that do not belong to one movement
const SLOW_FRAMES = 2;      // in a row
const REST_MS = 300;

export class FramePace {
  /** @param {Element} overlay gets the class "hurried" */
  constructor(overlay) {
    this.overlay = overlay;
    this.last = 0;
    this.slow = 0;
    this.timer = 0;
  }

  /** @param {number} time of a frame in which the view moved [ms] */
  tick(time) {
    const interval = time - this.last;
    this.last = time;
    this.slow = interval > SLOW_MS && interval < PAUSE_MS ? this.slow + 1 : 0;
    if (this.slow >= SLOW_FRAMES) {
      this.overlay.classList.add("hurried");
    }
    clearTimeout(this.timer);
    this.timer = setTimeout(() => this.overlay.classList.remove("hurried"), REST_MS);
  }
}
