// The numbers of the point that is selected, and its copy for other programs.

import { pointText } from "./csv.js";
import { element } from "./element.js";
import { copyText } from "./file_saving.js";
import { generalNumber, shortPixels } from "./number_text.js";
import { deviationEllipse, residualLength } from "./page_data.js";

const KIND_SENTENCES = {
  seen: "seen: a mark is there",
  filled: "filled in: no mark was seen",
  measured: "measured on its strokes",
  doubtful: "doubtful: on two arms only, or off the others\u2019 grid",
  predicted: "predicted: no mark was seen",
};

function numbersOf(point) {
  const numbers = [
    ["id", String(point.id)],
    ["row, column", `${point.row}, ${point.col}`],
    ["x, y", `${generalNumber(point.x, 9)}, ${generalNumber(point.y, 9)} px`],
    ["kind", KIND_SENTENCES[point.kind] ?? point.kind],
  ];
  if (point.residual) {
    const [dx, dy] = point.residual;
    numbers.push(["residual",
      `${shortPixels(residualLength(point))} px (${shortPixels(dx)}, ${shortPixels(dy)})`]);
  }
  if (point.covariance) {
    const { long, short, angle } = deviationEllipse(point.covariance);
    const turn = Math.round(angle * 180 / Math.PI);
    numbers.push(
      ["deviation", `${generalNumber(long, 3)} \u00d7 ${generalNumber(short, 3)} px, longer axis at ${turn}\u00b0`],
      ["covariance", `${point.covariance.map((part) => generalNumber(part, 6)).join(", ")} px\u00b2`]);
  }
  return numbers;
}

export class PointPanel {
  /** @param {{hint: HTMLElement, numbers: HTMLElement, copy: HTMLButtonElement, report: HTMLElement}} parts */
  constructor(parts) {
    Object.assign(this, parts);
    this.point = null;
    this.copy.addEventListener("click", () => this.copyPoint());
  }

  /** @param {?Point} point */
  show(point, hint) {
    this.point = point;
    this.hint.textContent = hint;
    this.hint.hidden = point !== null;
    this.numbers.hidden = point === null;
    this.copy.disabled = point === null;
    this.report.textContent = "";
    this.numbers.replaceChildren(...(point ? numbersOf(point) : []).flatMap(([name, text]) => (
      [element("dt", {}, name), element("dd", {}, text)])));
  }

  async copyPoint() {
    if (!this.point) {
      return;
    }
    const text = pointText(this.point);
    const copied = await copyText(text);
    this.report.textContent = copied ? `copied ${text}` : "the browser refused";
  }
}

/** For the announcement of a selection. */
export function pointSentence(point) {
  const residual = residualLength(point);
  return `Point ${point.id}, row ${point.row}, column ${point.col}, ${point.kind}`
    + (residual === null ? "" : `, residual ${shortPixels(residual)} pixels`);
}
