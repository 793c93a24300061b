// Lists that lead to places in the picture: where the two detections disagree, and the points with
// the largest residuals.

import { disagreementMark, disagreementPlace, disagreementText } from "./disagreement_layer.js";
import { element, svgElement } from "./element.js";
import { counted, shortPixels } from "./number_text.js";
import { isGuessed, residualLength } from "./page_data.js";

const WORST_COUNT = 10;

function jumpList(section, heading, items) {
  section.hidden = items.length === 0;
  section.replaceChildren(element("h3", {}, heading), element("ol", { class: "jumps" },
    ...items.map(({ contents, onChoose }) => {
      const button = element("button", { type: "button" }, ...contents);
      button.addEventListener("click", onChoose);
      return element("li", {}, button);
    })));
}

/** @param {function(number, number)} onChoose gets the place [px] */
export function fillDisagreements(section, disagreements, onChoose) {
  const heading = counted(disagreements.length, "disagreement with the direct detection",
    "disagreements with the direct detection");
  jumpList(section, heading, disagreements.map((disagreement) => {
    const { word, detail } = disagreementText(disagreement);
    const place = disagreementPlace(disagreement);
    const shape = svgElement("svg", { viewBox: "-20 -20 40 40", class: "disagreement", "aria-hidden": "true" },
      ...disagreementMark(disagreement.what));
    return {
      contents: [shape, element("span", {}, element("b", {}, word), ` ${detail}`)],
      onChoose: () => onChoose(place.x, place.y),
    };
  }));
}

/** @param {function(number)} onChoose gets the point's index */
export function fillWorstPoints(section, points, onChoose) {
  const worst = points
    .map((point, index) => ({ point, index, length: residualLength(point) }))
    .filter(({ length }) => length !== null)
    .sort((a, b) => b.length - a.length)
    .slice(0, WORST_COUNT);
  jumpList(section, "Largest residuals", worst.map(({ point, index, length }) => ({
    contents: [
      element("span", { class: "number" }, `${shortPixels(length)} px`),
      element("span", {}, `${point.id}: row ${point.row}, column ${point.col}`
        + (isGuessed(point) ? `, ${point.kind === "filled" ? "filled in" : "predicted"}` : "")),
    ],
    onChoose: () => onChoose(index),
  })));
}
