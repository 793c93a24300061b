// Where the list and the direct detection disagree: a shape of its own and a word for each case.

import { svgElement } from "./element.js";
import { shortPixels } from "./number_text.js";
import { PlateLabel } from "./plate_label.js";
import { crowdedSize } from "./point_layer.js";

const OUTLINES = {  // screen px around the place
  lost: "M0 -16L15 11H-15Z",
  label: "M-9 -15H9L17 0L9 15H-9L-17 0Z",
  off: "M0 -17L17 0L0 17L-17 0Z",
  extra: "M-14 -14H14V14H-14ZM-14 14L14 -14",
};

const WORD_Y = 25;      // screen px below the place
const WORD_ROOM = 76;   // screen px between points that leaves room for the words

/** What happened, in one word, and the numbers that belong to it. */
export function disagreementText({ what, row, col, x, y, listed }) {
  switch (what) {
    case "lost":
      return { word: "lost", detail: `the mark of row ${row}, column ${col} is not in the list` };
    case "label":
      return {
        word: "wrong label",
        detail: `listed as row ${listed.row}, column ${listed.col}, found as row ${row}, column ${col}`,
      };
    case "off":
      return {
        word: "off",
        detail: `row ${row}, column ${col}: listed ${shortPixels(Math.hypot(listed.x - x, listed.y - y))} px `
          + "from the mark",
      };
    default:
      return {
        word: "extra",
        detail: `listed as row ${listed.row}, column ${listed.col}, where no mark was found`,
      };
  }
}

/** @returns {{x: number, y: number}} where it is marked */
export function disagreementPlace(disagreement) {
  return disagreement.x === undefined ? disagreement.listed : disagreement;
}

/** The shape of one case around the origin, as the picture and the lists show it. */
export function disagreementMark(what) {
  const d = OUTLINES[what] ?? OUTLINES.extra;
  return [svgElement("path", { class: "rim", d }), svgElement("path", { class: "ink", d })];
}

export class DisagreementLayer {
  constructor(disagreements) {
    this.spacing = Infinity;
    this.group = svgElement("g", { class: "disagreements" });
    this.marks = disagreements.map((disagreement) => {
      const place = disagreementPlace(disagreement);
      const ways = [svgElement("path", { class: "rim" }), svgElement("path", { class: "ink" })];
      const word = new PlateLabel();
      word.setText(disagreementText(disagreement).word);
      word.place(0, WORD_Y, true);
      const shape = svgElement("g", {}, ...disagreementMark(disagreement.what), word.group);
      const mark = svgElement("g", { class: "disagreement", "data-what": disagreement.what },
        ...ways, shape);
      this.group.append(mark);
      return { place, mark, shape, word, ways, listed: disagreement.listed };
    });
  }

  /** @param {number} spacing a middling one between points [px]; marks make room for each other */
  setSpacing(spacing) {
    this.spacing = spacing;
  }

  rescale(scale) {
    const size = crowdedSize(this.spacing * scale / 2);
    const hasRoom = this.spacing * scale >= WORD_ROOM;
    for (const { place, mark, shape, word, ways, listed } of this.marks) {
      shape.setAttribute("transform", `scale(${size})`);
      word.show(hasRoom);
      mark.setAttribute("transform", `translate(${place.x * scale} ${place.y * scale})`);
      if (listed) {
        const way = `M0 0L${(listed.x - place.x) * scale} ${(listed.y - place.y) * scale}`;
        ways.forEach((path) => path.setAttribute("d", way));
      }
    }
  }
}
