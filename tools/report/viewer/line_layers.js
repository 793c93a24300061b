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

// One stroke over a wider one of the other lightness. All lines of a layer are one path: a browser
// takes long over many elements that change in each frame of a zoom.
function strokePair(className = "") {
  const paths = ["rim", "ink"].map((part) => svgElement("path", { class: `${part} ${className}` }));
  return { paths, draw: (text) => paths.forEach((path) => path.setAttribute("d", text)) };
}

// An arrow from a place along a vector; its head shrinks with a short shaft.
function arrowText(startX, startY, x, y) {
  const length = Math.hypot(x, y);
  const head = Math.min(HEAD_LENGTH, length);
  const half = HEAD_HALF_WIDTH * head / HEAD_LENGTH;
  const [ux, uy] = [x / length, y / length];
  const [tipX, tipY] = [startX + x, startY + y];
  const [baseX, baseY] = [tipX - ux * head, tipY - uy * head];
  return `M${startX} ${startY}L${tipX} ${tipY}`
    + `M${baseX - uy * half} ${baseY + ux * half}L${tipX} ${tipY}L${baseX + uy * half} ${baseY - ux * half}`;
}

/** Arrows from each point that was seen, along its residual. Those of stray points are cut off, dashed. */
export class ArrowLayer {
  constructor(points) {
    this.magnification = 1;
    this.longest = Infinity;
    this.scale = 1;
    this.points = points.filter((point) => point.residual && !isGuessed(point));
    this.whole = strokePair();
    this.cut = strokePair("cut");
    this.group = svgElement("g", { class: "arrows" }, ...this.whole.paths, ...this.cut.paths);
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
    let whole = "";
    let cut = "";
    for (const { x, y, residual } of this.points) {
      const length = Math.hypot(...residual) * this.magnification;
      if (length * scale >= SHORTEST_ARROW) {
        const drawn = scale * this.magnification * Math.min(1, this.longest / length);
        const text = arrowText(x * scale, y * scale, residual[0] * drawn, residual[1] * drawn);
        if (length > this.longest) {
          cut += text;
        } else {
          whole += text;
        }
      }
    }
    this.whole.draw(whole);
    this.cut.draw(cut);
  }
}

// Two half turns around a place.
function ellipseText(x, y, long, short, angle) {
  const [dx, dy] = [long * Math.cos(angle), long * Math.sin(angle)];
  const turn = angle * 180 / Math.PI;
  const half = `a${long} ${short} ${turn} 1 0 `;
  return `M${x - dx} ${y - dy}${half}${2 * dx} ${2 * dy}${half}${-2 * dx} ${-2 * dy}`;
}

/** Ellipses of one standard deviation. */
export class EllipseLayer {
  constructor(points) {
    this.magnification = 1;
    this.scale = 1;
    this.ellipses = points
      .filter((point) => point.covariance)
      .map((point) => ({ point, axes: deviationEllipse(point.covariance) }));
    this.strokes = strokePair();
    this.group = svgElement("g", { class: "ellipses" }, ...this.strokes.paths);
  }

  setMagnification(magnification) {
    this.magnification = magnification;
    this.rescale(this.scale);
  }

  rescale(scale) {
    this.scale = scale;
    const enlarged = scale * this.magnification;
    const drawn = (axis) => Math.max(SHORTEST_AXIS, axis * enlarged);
    this.strokes.draw(this.ellipses.map(({ point, axes }) => (
      ellipseText(point.x * scale, point.y * scale, drawn(axes.long), drawn(axes.short), axes.angle)
    )).join(""));
  }
}
