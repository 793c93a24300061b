// The points as vectors of constant size on the screen. What a point is shows in its shape: a ring
// with a cross for a mark that was seen, a diamond for a doubtful one, an empty dashed square for a
// place that follows from other points.

import { svgElement } from "./element.js";
import { isGuessed } from "./page_data.js";
import { PlateLabel } from "./plate_label.js";

const RING_RADIUS = 7;      // screen px, as all lengths here
const CROSS_REACH = 3;
const SELECTED_RADIUS = 13;
const COMFORTABLE = 24;     // between points; where they are closer, marks shrink
const SMALLEST_MARK = 0.45; // of the full size
const LABEL_START = 12;     // between points beside the label, for the ring and some air
const LABEL_X = RING_RADIUS + 1;
const LABEL_Y = -RING_RADIUS - 5;
const CLEAR_OF_HALO = 5;    // that the selected point's label goes further
const CROSS = `M${-CROSS_REACH} 0H${CROSS_REACH}M0 ${-CROSS_REACH}V${CROSS_REACH}`;

function outline(kind, className) {
  if (kind === "filled" || kind === "predicted") {
    const half = RING_RADIUS + 1;
    return svgElement("rect", { class: className, x: -half, y: -half, width: 2 * half, height: 2 * half });
  }
  if (kind === "doubtful") {
    const r = RING_RADIUS + 2;
    return svgElement("polygon", { class: className, points: `0,${-r} ${r},0 0,${r} ${-r},0` });
  }
  return svgElement("circle", { class: className, r: RING_RADIUS });
}

/** A point's mark around the origin; also for the legend. */
export function pointMark(kind) {
  if (isGuessed({ kind })) {
    return [outline(kind, "rim"), outline(kind, "ring guessed")];  // no cross where none was seen
  }
  return [
    outline(kind, "rim"), svgElement("path", { class: "rim", d: CROSS }),
    outline(kind, "ring"), svgElement("path", { class: "cross", d: CROSS }),
  ];
}

/** How much of their full size marks have that stand `apart` [screen px] from each other. */
export function crowdedSize(apart) {
  return Math.max(SMALLEST_MARK, Math.min(1, apart / COMFORTABLE));
}

/**
 * Distance of each point to the nearest of its neighbours in row and column [px]; Infinity where it
 * has none.
 * @param {Point[]} points
 */
function pointSpacings(points) {
  const byPlace = new Map(points.map((point) => [`${point.row},${point.col}`, point]));
  return points.map(({ row, col, x, y }) => {
    const around = [[row, col - 1], [row, col + 1], [row - 1, col], [row + 1, col]];
    const lengths = around
      .map((place) => byPlace.get(place.join()))
      .filter((other) => other && (other.x !== x || other.y !== y))
      .map((other) => Math.hypot(other.x - x, other.y - y));
    return Math.min(...lengths, Infinity);
  });
}

/** The middle one of the finite spacings, or a guess for points without neighbours. */
function middleSpacing(spacings) {
  const finite = spacings.filter(Number.isFinite).sort((a, b) => a - b);
  return finite.length ? finite[Math.floor(finite.length / 2)] : 100;
}

function labelOf(point, kind) {
  return { id: String(point.id), place: `${point.row},${point.col}`, none: "" }[kind];
}

export class PointLayer {
  /** @param {Point[]} points */
  constructor(points) {
    this.points = points;
    this.spacings = pointSpacings(points);
    this.spacing = middleSpacing(this.spacings);
    this.group = svgElement("g", { class: "points" });
    this.halo = svgElement("circle", { class: "selected-halo", r: SELECTED_RADIUS, visibility: "hidden" });
    this.selected = -1;
    this.scale = 1;
    this.marks = points.map((point) => {
      const label = new PlateLabel();
      const mark = svgElement("g", {
        class: "point",
        "data-id": point.id,
        "data-row": point.row,
        "data-col": point.col,
        "data-kind": point.kind,
      }, ...pointMark(point.kind), label.group);
      this.group.append(mark);
      return { mark, label };
    });
    this.group.append(this.halo);
  }

  /** @param {function(Point): ?number} valueOf pixels, for the colour */
  paint(scale, valueOf) {
    this.points.forEach((point, i) => {
      const value = valueOf(point);
      this.marks[i].mark.style.setProperty("--ink", scale.colour(value));
      this.marks[i].mark.classList.toggle("dark-ink", scale.isDark(value));
    });
  }

  /** @param {"id"|"place"|"none"} kind */
  setLabels(kind) {
    this.points.forEach((point, i) => {
      this.marks[i].label.setText(labelOf(point, kind));
    });
    this.placeLabels();
  }

  placeLabels() {
    this.marks.forEach(({ label }, i) => (
      label.place(LABEL_X + (i === this.selected ? CLEAR_OF_HALO : 0), LABEL_Y)));
    this.rescale(this.scale);
  }

  rescale(scale) {
    this.scale = scale;
    const size = crowdedSize(this.spacing * scale);
    this.points.forEach((point, i) => {
      const { mark, label } = this.marks[i];
      const place = `translate(${point.x * scale} ${point.y * scale}) scale(${size})`;
      mark.setAttribute("transform", place);
      const room = Math.min(this.spacings[i], this.spacing * 2) * scale;
      label.show(i === this.selected || room >= LABEL_START + label.width);
      if (i === this.selected) {
        this.halo.setAttribute("transform", place);
      }
    });
  }

  /** @param {number} index of the point, -1 for none */
  select(index) {
    this.marks[this.selected]?.mark.classList.remove("selected");
    this.selected = index;
    this.halo.setAttribute("visibility", index < 0 ? "hidden" : "visible");
    this.marks[index]?.mark.classList.add("selected");
    this.placeLabels();
  }

  /** Index of the nearest point within `reach` [px] of the place, or -1. */
  nearest(x, y, reach) {
    let best = -1;
    let least = reach;
    this.points.forEach((point, i) => {
      const distance = Math.hypot(point.x - x, point.y - y);
      if (distance <= least) {
        best = i;
        least = distance;
      }
    });
    return best;
  }
}
