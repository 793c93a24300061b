// Lines over the picture: the curves of rows and columns, arrows of residuals, ellipses of
// covariances.

import { svgElement } from "./element.js";
import { deviationEllipse, isGuessed } from "./page_data.js";

const HEAD_LENGTH = 6;      // screen px of an arrow's head
const HEAD_HALF_WIDTH = 3;
const SHORTEST_ARROW = 1.5; // screen px; shorter ones are a dot that tells nothing
const LONGEST_OF_SPACING = 1.5; // where an arrow is cut off
const LARGEST_DASHED_SCALE = 6; // screen px per image px
const SHORTEST_AXIS = 0.5;  // screen px of an ellipse that is drawn

function pathText(line) {
  return line.map(([x, y], i) => `${i ? "L" : "M"}${x} ${y}`).join("");
}

// Without fitted curves: the points of a row or column, joined where they are neighbours.
function joinedNeighbours(points, along, across) {
  const lines = new Map();
  for (const point of points.filter((candidate) => candidate[across] >= 0)) {
    lines.set(point[across], [...(lines.get(point[across]) ?? []), point]);
  }
  const pieces = [];
  for (const line of lines.values()) {
    line.sort((a, b) => a[along] - b[along]);
    line.forEach((point, i) => {
      if (i > 0 && point[along] - line[i - 1][along] === 1) {
        pieces.at(-1).push([point.x, point.y]);
      } else {
        pieces.push([[point.x, point.y]]);
      }
    });
  }
  return pieces.filter((piece) => piece.length > 1);
}

/** @returns {{rows: number[][][], columns: number[][][]}} lines of places [px] */
export function gridCurves(picture) {
  return {
    rows: picture.curves?.rows ?? joinedNeighbours(picture.points, "col", "row"),
    columns: picture.curves?.columns ?? joinedNeighbours(picture.points, "row", "col"),
  };
}

/** Curves scale as a whole; only their strokes keep their width. */
export class CurveLayer {
  constructor(lines, className) {
    const text = lines.map(pathText).join("");
    this.group = svgElement("g", { class: `curves ${className}` },
      svgElement("path", { class: "rim", d: text }), svgElement("path", { class: "ink", d: text }));
  }

  rescale(scale) {
    this.group.setAttribute("transform", `scale(${scale})`);
    // Dashes are laid out along the whole curve, also where it is far out of view.
    this.group.classList.toggle("close-up", scale > LARGEST_DASHED_SCALE);
  }
}

// An arrow from the origin; its head shrinks with a short shaft.
function arrowText(x, y) {
  const length = Math.hypot(x, y);
  const head = Math.min(HEAD_LENGTH, length);
  const half = HEAD_HALF_WIDTH * head / HEAD_LENGTH;
  const [ux, uy] = [x / length, y / length];
  const [bx, by] = [x - ux * head, y - uy * head];
  return `M0 0L${x} ${y}M${bx - uy * half} ${by + ux * half}L${x} ${y}L${bx + uy * half} ${by - ux * half}`;
}

/** Arrows from each point that was seen, along its residual. Those of stray points are cut off, dashed. */
export class ArrowLayer {
  constructor(points) {
    this.magnification = 1;
    this.longest = Infinity;
    this.scale = 1;
    this.group = svgElement("g", { class: "arrows" });
    this.arrows = points
      .filter((point) => point.residual && !isGuessed(point))
      .map((point) => {
        const paths = [svgElement("path", { class: "rim" }), svgElement("path", { class: "ink" })];
        const arrow = svgElement("g", {}, ...paths);
        this.group.append(arrow);
        return { point, arrow, paths };
      });
  }

  /** @param {number} spacing a middling one between points [px] */
  setSpacing(spacing) {
    this.longest = spacing * LONGEST_OF_SPACING;
  }

  setMagnification(magnification) {
    this.magnification = magnification;
    this.rescale(this.scale);
  }

  rescale(scale) {
    this.scale = scale;
    for (const { point, arrow, paths } of this.arrows) {
      const length = Math.hypot(...point.residual) * this.magnification;
      const drawn = scale * this.magnification * Math.min(1, this.longest / length);
      const text = length * scale < SHORTEST_ARROW ? ""
        : arrowText(point.residual[0] * drawn, point.residual[1] * drawn);
      arrow.classList.toggle("cut", length > this.longest);
      arrow.setAttribute("transform", `translate(${point.x * scale} ${point.y * scale})`);
      paths.forEach((path) => path.setAttribute("d", text));
    }
  }
}

/** Ellipses of one standard deviation. */
export class EllipseLayer {
  constructor(points) {
    this.magnification = 1;
    this.scale = 1;
    this.group = svgElement("g", { class: "ellipses" });
    this.ellipses = points.filter((point) => point.covariance).map((point) => {
      const shapes = [svgElement("ellipse", { class: "rim" }), svgElement("ellipse", { class: "ink" })];
      this.group.append(...shapes);
      return { point, shapes, axes: deviationEllipse(point.covariance) };
    });
  }

  setMagnification(magnification) {
    this.magnification = magnification;
    this.rescale(this.scale);
  }

  rescale(scale) {
    this.scale = scale;
    const enlarged = scale * this.magnification;
    for (const { point, shapes, axes } of this.ellipses) {
      const turn = axes.angle * 180 / Math.PI;
      for (const shape of shapes) {
        shape.setAttribute("transform",
          `translate(${point.x * scale} ${point.y * scale}) rotate(${turn})`);
        shape.setAttribute("rx", Math.max(SHORTEST_AXIS, axes.long * enlarged));
        shape.setAttribute("ry", Math.max(SHORTEST_AXIS, axes.short * enlarged));
      }
    }
  }
}
