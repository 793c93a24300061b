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
const LABEL_NAMES = { id: "id", place: "row,column", none: "none" };
const LAYER_LINES = { rows: "row-curves", columns: "column-curves", arrows: "arrows", ellipses: "ellipses" };
const LAYER_NAMES = {
  points: "points",
  rows: "row curves",
  columns: "column curves",
  arrows: "residual arrows",
  ellipses: "ellipses",
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

function colourChoice({ picture, scales, settings }, onChoose) {
  const colourBy = scales.colourBy(settings);
  const choices = ["residual", "covariance"].map((name) => {
    const isKnown = name === "residual" ? scales.hasResiduals : scales.hasCovariances;
    const text = isKnown ? name : `${name} (not known)`;
    return choice("colour", name, text, name === colourBy, isKnown, onChoose);
  });
  return element("fieldset", {}, element("legend", {}, "Colour"), ...choices,
    colourLegend(scales[colourBy], colourBy), shapeLegend(picture.points));
}

function labelChoice({ settings }, onChoose) {
  return element("fieldset", {}, element("legend", {}, "Label"),
    ...Object.entries(LABEL_NAMES).map(([name, text]) => (
      choice("label", name, text, name === settings.label, true, onChoose))));
}

// What the layer's lines look like.
function layerSample(name) {
  const line = LAYER_LINES[name];
  return line ? svgElement("svg", { viewBox: "0 0 24 12", class: "sample", "aria-hidden": "true" },
    svgElement("g", { class: line }, svgElement("path", { class: "ink", d: "M0 6H24" }))) : "";
}

function layerChoice({ settings }, names, onToggle) {
  return element("fieldset", { class: "layers" }, element("legend", {}, "Layers"), ...names.map((name) => {
    const box = element("input", { type: "checkbox", value: name, checked: !settings.hidden.has(name) });
    box.addEventListener("change", () => onToggle(name, box.checked));
    return element("label", {}, box, LAYER_NAMES[name], layerSample(name));
  }));
}

/**
 * Fills the panel for one picture.
 * @param {HTMLElement} panel
 * @param {{picture: Object, scales: PictureScales, settings: ViewSettings}} shown
 * @param {function()} onChange
 */
export function fillSettingsPanel(panel, shown, onChange) {
  const { picture, scales, settings } = shown;
  if (picture.points.length === 0) {
    panel.replaceChildren();
    return;
  }
  const set = (name) => (value) => {
    settings[name] = value;
    onChange();
  };
  const colourBy = scales.colourBy(settings);
  const isPossible = {
    arrows: scales.hasResiduals,
    ellipses: colourBy === "covariance",
    disagreements: (picture.disagreements ?? []).length > 0,
  };
  const layers = Object.keys(LAYER_NAMES).filter((name) => isPossible[name] ?? true);
  const sliders = [
    ["arrows", "arrow-size", "Arrows enlarged", ARROW_STEPS],
    ["ellipses", "ellipse-size", "Ellipses enlarged", ELLIPSE_STEPS],
  ].filter(([name]) => isPossible[name]);

  panel.replaceChildren(
    colourChoice(shown, (name) => {
      set("colourBy")(name);
      fillSettingsPanel(panel, shown, onChange);
      panel.querySelector(`input[value="${name}"]`).focus();
    }),
    labelChoice(shown, set("label")),
    layerChoice(shown, layers, (name, isOn) => {
      settings.hidden[isOn ? "delete" : "add"](name);
      onChange();
    }),
    ...sliders.map(([name, id, text, steps]) => (
      slider(id, text, steps, settings[name] ?? scales[name], set(name)))));
}
