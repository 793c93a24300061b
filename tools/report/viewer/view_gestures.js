// Pointer, wheel and keys over the view, told as moves: pan, zoom, point at, click.

const CLICK_REACH = 4;          // screen px that a click may tremble
const WHEEL_STEP = 0.0016;      // zoom per wheel unit, as a natural logarithm
const LINE_HEIGHT = 16;         // wheel units of a line, where a wheel counts lines
const LARGEST_WHEEL = 240;      // wheel units of one event that are taken
const PAN_KEY_STEP = 60;        // screen px
const DOUBLE_CLICK_ZOOM = 2.5;

/**
 * @typedef {Object} GestureActions
 * @property {function(number, number)} panBy screen px
 * @property {function(number, number, number, boolean)} zoomAt screen place, factor, in one go or slowly
 * @property {function()} fit
 * @property {function(?number, ?number)} hover screen place, or null outside
 * @property {function(number, number)} click screen place
 */

export class ViewGestures {
  /**
   * @param {HTMLElement} stage
   * @param {GestureActions} actions
   */
  constructor(stage, actions) {
    this.stage = stage;
    this.actions = actions;
    this.pointers = new Map();  // those that are down, by id: their screen place
    this.travelled = 0;
    stage.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
    stage.addEventListener("pointerdown", (event) => this.down(event));
    stage.addEventListener("pointermove", (event) => this.move(event));
    stage.addEventListener("pointerup", (event) => this.up(event));
    stage.addEventListener("pointercancel", (event) => this.lift(event));
    stage.addEventListener("pointerleave", () => actions.hover(null, null));
    stage.addEventListener("dblclick", (event) => {
      const [x, y] = this.place(event);
      actions.zoomAt(x, y, event.shiftKey ? 1 / DOUBLE_CLICK_ZOOM : DOUBLE_CLICK_ZOOM, false);
    });
    stage.addEventListener("keydown", (event) => this.key(event));
  }

  place(event) {
    const box = this.stage.getBoundingClientRect();
    return [event.clientX - box.left - this.stage.clientLeft,
      event.clientY - box.top - this.stage.clientTop];
  }

  wheel(event) {
    event.preventDefault();
    const unit = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? LINE_HEIGHT
      : event.deltaMode === WheelEvent.DOM_DELTA_PAGE ? this.stage.clientHeight : 1;
    // Two fingers on a pad come as small steps with the control key.
    const pinch = event.ctrlKey ? 6 : 1;
    const delta = event.deltaY * unit * pinch;
    const taken = Math.min(LARGEST_WHEEL, Math.max(-LARGEST_WHEEL, delta));
    this.actions.zoomAt(...this.place(event), Math.exp(-taken * WHEEL_STEP), true);
  }

  down(event) {
    if (event.pointerType === "mouse" && event.button !== 0) {
      return;
    }
    if (this.pointers.size === 0) {
      this.travelled = 0;
    } else {
      this.travelled = Infinity;  // a pinch is no click
    }
    this.pointers.set(event.pointerId, this.place(event));
    this.stage.setPointerCapture(event.pointerId);
  }

  move(event) {
    const place = this.place(event);
    const last = this.pointers.get(event.pointerId);
    if (!last) {
      this.actions.hover(...place);
      return;
    }
    const dx = place[0] - last[0];
    const dy = place[1] - last[1];
    if (this.pointers.size === 1) {
      this.travelled = Math.max(this.travelled, Math.hypot(dx, dy));
      if (this.travelled <= CLICK_REACH) {
        return;
      }
      this.pointers.set(event.pointerId, place);
      this.stage.classList.add("dragged");
      this.actions.panBy(dx, dy);
    } else {
      this.pinch(event.pointerId, last, place);
    }
  }

  // The finger that stays is the one to zoom about: both fingers keep what is under them.
  pinch(id, last, place) {
    const [other] = [...this.pointers].filter(([known]) => known !== id).map(([, at]) => at);
    const before = Math.hypot(last[0] - other[0], last[1] - other[1]);
    const after = Math.hypot(place[0] - other[0], place[1] - other[1]);
    this.pointers.set(id, place);
    if (before > 1 && after > 1) {
      this.actions.panBy((place[0] - last[0]) / 2, (place[1] - last[1]) / 2);
      this.actions.zoomAt((place[0] + other[0]) / 2, (place[1] + other[1]) / 2, after / before, true);
    }
  }

  up(event) {
    if (!this.lift(event)) {
      return;
    }
    if (this.pointers.size === 0 && this.travelled <= CLICK_REACH) {
      this.actions.click(...this.place(event));
    }
  }

  // Whether it was down.
  lift(event) {
    this.stage.classList.remove("dragged");
    return this.pointers.delete(event.pointerId);
  }

  key(event) {
    if (event.ctrlKey || event.metaKey || event.altKey) {
      return;
    }
    const pan = {
      ArrowLeft: [PAN_KEY_STEP, 0],
      ArrowRight: [-PAN_KEY_STEP, 0],
      ArrowUp: [0, PAN_KEY_STEP],
      ArrowDown: [0, -PAN_KEY_STEP],
    }[event.key];
    if (pan) {
      event.preventDefault();
      this.actions.panBy(...pan);
    }
  }
}
