// A short text on a dark plate over the picture. A browser draws it much faster than a text with an
// outline.

import { svgElement } from "./element.js";

const LETTER = 7.2;         // screen px, as wide as letters come
const SIDES = 5;            // left and right of the text together
const HEIGHT = 15;

export class PlateLabel {
  constructor() {
    this.plate = svgElement("rect", { class: "plate", height: HEIGHT, rx: 3 });
    this.text = svgElement("text", { "text-anchor": "middle", dy: "0.36em" });
    this.group = svgElement("g", { class: "label" }, this.plate, this.text);
    this.width = 0;
  }

  setText(text) {
    this.text.textContent = text;
    this.width = text ? text.length * LETTER + SIDES : 0;
    this.plate.setAttribute("width", this.width);
  }

  /** Puts the plate's left end, or its middle, to a place; y is that of its middle. */
  place(x, y, isCentred = false) {
    const middle = isCentred ? x : x + this.width / 2;
    this.plate.setAttribute("x", middle - this.width / 2);
    this.plate.setAttribute("y", y - HEIGHT / 2);
    this.text.setAttribute("x", middle);
    this.text.setAttribute("y", y);
  }

  show(isShown) {
    if (isShown !== this.isShown) {
      this.isShown = isShown;
      this.group.setAttribute("visibility", isShown ? "inherit" : "hidden");
    }
  }
}
