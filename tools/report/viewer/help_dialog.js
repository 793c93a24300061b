// The keys, and what the words and numbers of the page mean.

import { element } from "./element.js";

const KEYS = [
  ["?", "this help"],
  ["Up, Down", "in the table: from picture to picture; Enter opens one"],
  ["/", "in the table: to the text filter"],
  ["Esc", "lets go of the point, then goes back to the table"],
  ["[ and ]", "the previous and the next picture"],
  ["+ and \u2212", "zoom in and out; so do the wheel, two fingers and a double click"],
  ["0", "the whole picture"],
  ["arrow keys", "move the picture while it has the focus; so does dragging"],
  ["n and p", "the next and the previous point of the list"],
  ["c", "copies the point that is selected: id,row,col,x,y"],
  ["Left, Right", "among the enlarged diagnostic pictures"],
];

const MEANINGS = [
  ["coordinates", "Pixels, x to the right and y down; whole numbers are pixel centres."],
  ["residual", "The listed position minus the place where a camera model, fitted to all marks of this one "
    + "picture, puts the mark. Arrows start at the point and show it enlarged; dashed ones are longer than they are drawn. "
    + "What the model cannot follow, a board that is not flat above all, is in it, too."],
  ["worst residual", "The largest one of the points that were seen."],
  ["filled in, predicted", "No mark was seen there; the place follows from the other points."],
  ["missing", "Marks that the list should have and has not; \u2013 when that cannot be told."],
  ["ellipses", "One standard deviation of the measured position, enlarged."],
  ["disagreements", "The direct detection found something else: a mark that the list lost, "
    + "another row or column, a place more than a pixel away, or nothing at all where the list has a point."],
];

function meaningList(pairs, wrap) {
  return element("dl", { class: "meanings" }, ...pairs.flatMap(([name, text]) => (
    [element("dt", {}, wrap ? element("kbd", {}, name) : name), element("dd", {}, text)])));
}

/**
 * @param {HTMLDialogElement} dialog
 * @param {HTMLElement} contents
 * @param {HTMLButtonElement} button opens it
 */
export function installHelp(dialog, contents, button) {
  contents.append(element("h3", {}, "Keys"), meaningList(KEYS, true),
    element("h3", {}, "Words"), meaningList(MEANINGS, false));
  button.addEventListener("click", () => dialog.showModal());
}
