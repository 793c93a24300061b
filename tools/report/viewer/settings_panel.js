// The controls of what is drawn, with the legend of colours and shapes.

import { ColourScale } from "./colour_scale.js";
import { element, svgElement } from "./element.js";
import { pointMark } from "./point_layer.js";
import { ARROW_STEPS, ELLIPSE_STEPS } from "./view_settings.js";

const COLOUR_NAMES = {
  residual: "residual: how far the point lies from the fitted camera\u2019s place for it",
  covariance: "standard deviation of the position, along its longer axis",
};
const KIND_NAMES = {
  seen: "seen",
  measured: "measured",
  doubtful: "doubtful",
  filled: "filled in, no mark seen",
  predicted: "predicted, no mark seen",
};
const LAYER_NAMES = {
  points: "points",
  rows: "row curves",
  columns: "column curves",
  arrows: "arrows of residuals",
  ellipses: "covariance ellipses",
  disagreements: "disagreements",
};

function choice(name, value, text, isChosen, isPossible, onChoose) {
  const input = element("input", {
    type: "radio", name, value, checked: isChosen, disabled: !isPossible,
  });
  input.addEventListener("change", () => onChoose(value));
  return element("label", {}, input, text);
}

function slider(id, text, steps, value, onChange) {
  const output = element("output", { for: id });
  const input = element("input", {
    id, type: "range", min: 0, max: steps.length - 1, step: 1, value: steps.indexOf(value),
  });
  const tell = () => {
    const magnification = steps[input.valueAsNumber];
    output.textContent = `${magnification}\u00d7`;
    input.setAttribute("aria-valuetext", `${magnification} times`);
    return magnification;
  };
  input.addEventListener("input", () => onChange(tell()));
  tell();
  return element("div", { class: "slider" }, element("label", { for: id }, text), input, output);
}

function colourLegend(scale, colourBy) {
  const stops = ColourScale.stops()
    .map(({ offset, colour }) => svgElement("stop", { offset, "stop-color": colour }));
  const half = Number((scale.top / 2).toPrecision(2));
  return element("figure", { class: "colour-legend" },
    svgElement("svg", { viewBox: "0 0 100 10", preserveAspectRatio: "none", "aria-hidden": "true" },
      svgElement("linearGradient", { id: "legend-colours" }, ...stops),
      svgElement("rect", { width: 100, height: 10, fill: "url(#legend-colours)" })),
    element("div", { class: "ticks" }, element("span", {}, "0"), element("span", {}, `${half}`),
      element("span", {}, `${scale.top} px or more`)),
    element("figcaption", {}, `${COLOUR_NAMES[colourBy]}; grey: not known`));
}

function shapeLegend(points) {
  const kinds = Object.keys(KIND_NAMES).filter((kind) => points.some((point) => point.kind === kind));
  return element("ul", { class: "shape-legend" }, ...kinds.map((kind) => element("li", {},
    svgElement("svg", { viewBox: "-11 -11 22 22", class: "point", "aria-hidden": "true" },
      ...pointMark(kind)),
    KIND_NAMES[kind])));
}

/**
 * Fills the panel for one picture.
 * @param {HTMLElement} panel
 * @param {{picture: Object, scales: PictureScales, settings: ViewSettings}} shown
 * @param {function()} onChange
 */
export function fillSettingsPanel(panel, { picture, scales, settings }, onChange) {
  if (picture.points.length === 0) {
    panel.replaceChildren();
    return;
  }
  const colourBy = scales.colourBy(settings);
  const set = (change) => () => {
    change();
    onChange();
  };
  const refill = (change) => {
    change();
    const focused = document.activeElement?.value;
    fillSettingsPanel(panel, { picture, scales, settings }, onChange);
    panel.querySelector(`input[value="${focused}"]`)?.focus();
    onChange();
  };

  const colours = element("fieldset", {}, element("legend", {}, "Colour"),
    ...["residual", "covariance"].map((name) => {
      const isKnown = name === "residual" ? scales.hasResiduals : scales.hasCovariances;
      return choice("colour", name, isKnown ? name : `${name} (not known)`, name === colourBy, isKnown,
        () => refill(() => { settings.colourBy = name; }));
    }),
    colourLegend(scales[colourBy], colourBy), shapeLegend(picture.points));

  const labels = element("fieldset", {}, element("legend", {}, "Label"),
    ...[["id", "id"], ["place", "row,column"], ["none", "none"]].map(([name, text]) => (
      choice("label", name, text, name === settings.label, true,
        () => set(() => { settings.label = name; })()))));

  const possible = {
    arrows: scales.hasResiduals,
    ellipses: colourBy === "covariance",
    disagreements: (picture.disagreements ?? []).length > 0,
  };
  const layers = element("fieldset", { class: "layers" }, element("legend", {}, "Layers"),
    ...Object.keys(LAYER_NAMES).filter((name) => possible[name] ?? true).map((name) => {
      const box = element("input", {
        type: "checkbox", value: name, checked: !settings.hidden.has(name),
      });
      box.addEventListener("change", set(() => {
        settings.hidden[box.checked ? "delete" : "add"](name);
      }));
      return element("label", {}, box, LAYER_NAMES[name]);
    }));

  const sliders = [];
  if (possible.arrows) {
    sliders.push(slider("arrow-size", "Arrows enlarged", ARROW_STEPS,
      settings.arrows ?? scales.arrows, (value) => set(() => { settings.arrows = value; })()));
  }
  if (possible.ellipses) {
    sliders.push(slider("ellipse-size", "Ellipses enlarged", ELLIPSE_STEPS,
      settings.ellipses ?? scales.ellipses, (value) => set(() => { settings.ellipses = value; })()));
  }
  panel.replaceChildren(colours, labels, layers, ...sliders);
}
