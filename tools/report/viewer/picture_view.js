// The picture with everything over it. One animation frame draws what changed since the last: the
// canvas, the place of the vectors, and at another scale their sizes.

import { svgElement } from "./element.js";
import { DisagreementLayer } from "./disagreement_layer.js";
import { FramePace } from "./frame_pace.js";
import { ImageLevels } from "./image_levels.js";
import { ArrowLayer, CurveLayer, EllipseLayer, gridCurves } from "./line_layers.js";
import { PointLayer } from "./point_layer.js";
import { ViewGestures } from "./view_gestures.js";
import { ViewSlide } from "./view_slide.js";
import { ViewTransform } from "./view_transform.js";

const STEP_ZOOM = 1.4;      // of a button or key
const EDGE = 24;            // screen px at the view's border that hide a point
const POINT_REACH = 12;     // screen px from a point that a click may miss it
const CLOSE_UP_SPACING = 160; // screen px between points after a jump to one of them

export class PictureView {
  /**
   * @param {{stage: HTMLElement, canvas: HTMLCanvasElement, overlay: SVGElement, message: HTMLElement}} parts
   * @param {{onSelect: function(number), onHover: function(?number, ?number, number), onMove: function()}} events
   */
  constructor(parts, events) {
    Object.assign(this, parts);
    this.events = events;
    this.context = this.canvas.getContext("2d");
    this.transform = new ViewTransform();
    this.pace = new FramePace(this.overlay);
    this.moving = svgElement("g");
    this.overlay.append(this.moving);
    this.layers = {};
    this.hidden = new Set();  // names of layers, whose sizes are left alone
    this.levels = null;
    this.shown = 0;  // counts the pictures, so that one that comes late is dropped
    this.slide = new ViewSlide(this.transform);
    this.pointer = null;  // its place while it is over the picture
    this.drawnScale = 0;
    this.frame = 0;
    new ViewGestures(this.stage, {
      panBy: (x, y) => this.change(() => this.transform.panBy(x, y)),
      zoomAt: (x, y, factor, isImmediate) => (isImmediate
        ? this.change(() => this.transform.zoomAt(x, y, factor))
        : this.slideTo(() => this.transform.zoomAt(x, y, factor))),
      hover: (x, y) => this.hover(x, y),
      click: (x, y) => this.click(x, y),
    });
    new ResizeObserver(() => this.resize()).observe(this.stage);
  }

  /**
   * @param {Object} picture
   * @param {string[]} addresses of its image, the best first; what cannot be decoded is passed over
   */
  async show(picture, addresses) {
    this.close();
    const turn = this.shown;
    const curves = gridCurves(picture);
    this.layers = {
      rows: new CurveLayer(curves.rows, "row-curves"),
      columns: new CurveLayer(curves.columns, "column-curves"),
      ellipses: new EllipseLayer(picture.points),
      arrows: new ArrowLayer(picture.points),
      points: new PointLayer(picture.points),
      disagreements: new DisagreementLayer(picture.disagreements ?? []),
    };
    this.layers.disagreements.setSpacing(this.layers.points.spacing);
    this.layers.arrows.setSpacing(this.layers.points.spacing);
    this.moving.append(...Object.values(this.layers).map((layer) => layer.group));
    this.transform.setImage(picture.width, picture.height);
    this.resize();
    await this.load(addresses, turn);
  }

  async load(addresses, turn) {
    for (const address of addresses.filter(Boolean)) {
      try {
        const levels = await ImageLevels.load(address);
        if (turn !== this.shown) {
          levels.close();
          return;
        }
        this.levels = levels;
        this.requestDraw();
        return;
      } catch {
        continue;
      }
    }
    if (turn === this.shown) {
      this.message.hidden = false;
    }
  }

  showLayer(name, isShown) {
    const layer = this.layers[name];
    layer.group.setAttribute("display", isShown ? "inline" : "none");
    this.hidden[isShown ? "delete" : "add"](name);
    if (isShown) {
      layer.rescale(this.transform.scale);
    }
  }

  /** Lets go of the picture. */
  close() {
    this.shown += 1;
    this.slide.stop();
    this.levels?.close();
    this.levels = null;
    this.layers = {};
    this.moving.replaceChildren();
    this.drawnScale = 0;
    this.message.hidden = true;
    this.requestDraw();
  }

  resize() {
    this.measure();
    this.requestDraw();
  }

  measure() {
    const { clientWidth, clientHeight } = this.stage;
    if (clientWidth !== this.transform.viewWidth || clientHeight !== this.transform.viewHeight) {
      this.transform.setView(clientWidth, clientHeight);
    }
  }

  /** A move at once, which ends one under way. */
  change(move) {
    this.slide.stop();
    move();
    this.requestDraw();
  }

  /** A move that the eye can follow. */
  slideTo(move) {
    this.slide.start(move);
    this.requestDraw();
  }

  zoomIn() {
    this.zoomBy(STEP_ZOOM);
  }

  zoomOut() {
    this.zoomBy(1 / STEP_ZOOM);
  }

  /** Zooms about the point that is selected, where it is in view, else about the middle. */
  zoomBy(factor) {
    const { points } = this.layers;
    const selected = points?.points[points.selected];
    const { viewWidth, viewHeight } = this.transform;
    const place = selected ? this.transform.toScreen(selected.x, selected.y) : [-1, -1];
    const isInView = place[0] >= 0 && place[1] >= 0 && place[0] < viewWidth && place[1] < viewHeight;
    const [x, y] = isInView ? place : [viewWidth / 2, viewHeight / 2];
    this.slideTo(() => this.transform.zoomAt(x, y, factor));
  }

  fit() {
    this.slideTo(() => this.transform.fit());
  }

  /** Brings a place into the middle, close enough to tell points apart. */
  jumpTo(x, y) {
    const closeUp = CLOSE_UP_SPACING / (this.layers.points?.spacing ?? CLOSE_UP_SPACING);
    this.slideTo(() => this.transform.centreOn(x, y, Math.max(this.transform.scale, closeUp)));
  }

  /** Moves only when the place is not in view. */
  uncover(x, y) {
    const [screenX, screenY] = this.transform.toScreen(x, y);
    if (screenX < EDGE || screenY < EDGE || screenX > this.transform.viewWidth - EDGE
        || screenY > this.transform.viewHeight - EDGE) {
      this.slideTo(() => this.transform.centreOn(x, y, this.transform.scale));
    }
  }

  click(screenX, screenY) {
    const [x, y] = this.transform.toImage(screenX, screenY);
    this.events.onSelect(this.layers.points?.nearest(x, y, POINT_REACH / this.transform.scale) ?? -1);
  }

  hover(screenX, screenY) {
    this.pointer = screenX === null ? null : [screenX, screenY];
    if (screenX === null) {
      this.events.onHover(null, null, -1);
      return;
    }
    const [x, y] = this.transform.toImage(screenX, screenY);
    const reach = POINT_REACH / this.transform.scale;
    this.events.onHover(x, y, this.layers.points?.nearest(x, y, reach) ?? -1);
  }

  requestDraw() {
    this.frame ||= requestAnimationFrame((time) => {
      this.frame = 0;
      this.draw(time);
    });
  }

  draw(time) {
    this.measure();  // the observer tells a new size only after this frame
    this.pace.tick(time);
    this.slide.advance(time);
    this.drawImage();
    const { scale, left, top } = this.transform;
    this.moving.setAttribute("transform", `translate(${left} ${top})`);
    if (scale !== this.drawnScale) {
      this.drawnScale = scale;
      Object.entries(this.layers)
        .filter(([name]) => !this.hidden.has(name))
        .forEach(([, layer]) => layer.rescale(scale));
    }
    Object.assign(this.overlay.dataset, { scale, left, top });
    if (this.pointer) {
      this.hover(...this.pointer);
    }
    this.events.onMove();
    if (this.slide.isUnderWay) {
      this.requestDraw();
    }
  }

  drawImage() {
    const density = window.devicePixelRatio;
    const width = Math.round(this.transform.viewWidth * density);
    const height = Math.round(this.transform.viewHeight * density);
    if (this.canvas.width !== width || this.canvas.height !== height) {
      this.canvas.width = width;
      this.canvas.height = height;
    }
    this.context.setTransform(1, 0, 0, 1, 0, 0);
    this.context.clearRect(0, 0, width, height);
    this.levels?.draw(this.context, this.transform, density);
  }
}
