// One picture: its view, the panel beside it and the strip below it.

import { pictureCsv } from "./csv.js";
import { byId, element, showText } from "./element.js";
import { fillFailureNotice } from "./failure_notice.js";
import { plainFileName, saveText } from "./file_saving.js";
import { fillDisagreements, fillWorstPoints } from "./jump_lists.js";
import { shortPixels } from "./number_text.js";
import { VERDICTS } from "./page_data.js";
import { PictureView } from "./picture_view.js";
import { PointPanel, pointSentence } from "./point_panel.js";
import { fillSettingsPanel } from "./settings_panel.js";
import { StageStrip } from "./stage_strip.js";
import { colouredValue, PictureScales, ViewSettings } from "./view_settings.js";

const POINT_HINT = "Click a point, or press n for the next and p for the previous one.";
const NO_POINTS_HINT = "This picture has no points.";

function figuresOf(picture) {
  const figures = [];
  if (picture.width > 0) {
    figures.push(`${picture.width} \u00d7 ${picture.height} px`);
    if (picture.kept && picture.kept.width < picture.width) {
      figures.push(`shown from ${picture.kept.width} \u00d7 ${picture.kept.height}`);
    }
  }
  if (picture.verdict !== "failed") {
    figures.push(`${picture.found} found`, `${picture.filled} filled in`);
    if (picture.missing !== null) {
      figures.push(`${picture.missing} missing`);
    }
    if (picture.worst !== null) {
      figures.push(`worst residual ${shortPixels(picture.worst)} px`);
    }
    if (picture.rms !== null) {
      figures.push(`rms ${shortPixels(picture.rms)} px`);
    }
  }
  return figures.join(" \u00b7 ");
}

export class PicturePage {
  /** @param {PageData} page */
  constructor(page) {
    this.page = page;
    this.settings = new ViewSettings();
    this.index = -1;
    this.picture = null;
    this.selected = -1;
    this.strip = new StageStrip(byId("stages"));
    this.points = new PointPanel({
      hint: byId("point-hint"),
      numbers: byId("point-numbers"),
      copy: byId("copy-point"),
      report: byId("copy-report"),
    });
    this.view = new PictureView({
      stage: byId("stage"),
      canvas: byId("image"),
      overlay: byId("overlay"),
      message: byId("stage-message"),
    }, {
      onSelect: (index) => this.select(index),
      onHover: (x, y, index) => this.tellPlace(x, y, index),
      onMove: () => this.tellZoom(),
    });
    byId("zoom-in").addEventListener("click", () => this.view.zoomIn());
    byId("zoom-out").addEventListener("click", () => this.view.zoomOut());
    byId("zoom-fit").addEventListener("click", () => this.view.fit());
    byId("download-picture-csv").addEventListener("click", () => {
      saveText(`${plainFileName(this.picture.name)}.csv`, [pictureCsv(this.page.run, this.picture)]);
    });
  }

  open(index) {
    this.index = index;
    const picture = this.page.picture(index);
    this.picture = picture;
    const { text, mark } = VERDICTS[picture.verdict];
    byId("picture-name").textContent = picture.name;
    byId("picture-verdict").textContent = `${mark} ${text}`;
    byId("picture-verdict").className = `verdict ${picture.verdict}`;
    byId("picture-figures").textContent = figuresOf(picture);
    byId("download-picture-csv").disabled = picture.points.length === 0;
    this.linkNeighbours();

    this.strip.show(this.page.run.stages, this.page.isDirect,
      (file) => this.page.imageAddress(index, file));
    fillFailureNotice(byId("failure"), picture, this.strip);
    const notes = [picture.verdict === "failed" ? "" : picture.message, ...picture.notes];
    showText(byId("picture-message"), notes.filter(Boolean).join(" \u00b7 "));
    byId("stage-message").textContent = picture.width > 0
      ? "This page has no image of this picture."
      : "The picture could not be read, so there is nothing to show.";

    this.view.show(picture, ["view", "thumbnail"].map((name) => this.page.imageAddress(index, name)));
    this.scales = new PictureScales(picture.points, this.view.layers.points.spacing);
    this.fillPanel();
    this.applySettings();
    this.select(-1);
    this.tellPlace(null, null, -1);
  }

  close() {
    this.index = -1;
    this.picture = null;
    this.view.close();
  }

  linkNeighbours() {
    for (const [id, index] of [["previous-picture", this.index - 1], ["next-picture", this.index + 1]]) {
      const exists = index >= 0 && index < this.page.count;
      byId(id).toggleAttribute("href", exists);
      if (exists) {
        byId(id).href = `#picture=${index}`;
      }
      byId(id).setAttribute("aria-disabled", String(!exists));
    }
  }

  fillPanel() {
    const { picture, scales, settings } = this;
    fillSettingsPanel(byId("settings"), { picture, scales, settings }, () => this.applySettings());
    fillDisagreements(byId("disagreements"), picture.disagreements ?? [],
      (x, y) => this.view.jumpTo(x, y));
    fillWorstPoints(byId("worst-points"), picture.points, (index) => {
      this.select(index);
      this.view.jumpTo(picture.points[index].x, picture.points[index].y);
    });
    const facts = picture.facts ?? [];
    byId("panel").hidden = picture.points.length === 0 && facts.length === 0;
    byId("facts").hidden = facts.length === 0;
    byId("facts").replaceChildren(element("h3", {}, "Facts"), element("table", {},
      element("tbody", {}, ...facts.map(([name, text]) => (
        element("tr", {}, element("th", { scope: "row" }, name), element("td", {}, text)))))));
  }

  applySettings() {
    const { layers } = this.view;
    const { settings, scales } = this;
    const colourBy = scales.colourBy(settings);
    layers.points.paint(scales[colourBy], (point) => colouredValue(point, colourBy));
    layers.points.setLabels(settings.label);
    layers.arrows.setMagnification(settings.arrows ?? scales.arrows);
    layers.ellipses.setMagnification(settings.ellipses ?? scales.ellipses);
    for (const name of Object.keys(layers)) {
      const isShown = !settings.hidden.has(name) && (name !== "ellipses" || colourBy === "covariance");
      this.view.showLayer(name, isShown);
    }
    this.view.requestDraw();
  }

  /** @param {number} index of the point, -1 for none */
  select(index) {
    this.selected = index;
    const point = this.picture?.points[index] ?? null;
    this.view.layers.points?.select(index);
    this.points.show(point, this.picture?.points.length ? POINT_HINT : NO_POINTS_HINT);
    byId("announcement").textContent = point ? pointSentence(point) : "";
  }

  /** The next or the previous point of the list, around its ends. */
  step(step) {
    const { length } = this.picture.points;
    if (length === 0) {
      return;
    }
    const from = this.selected < 0 && step < 0 ? 0 : this.selected;
    this.select((from + step + length) % length);
    const { x, y } = this.picture.points[this.selected];
    this.view.uncover(x, y);
  }

  tellPlace(x, y, index) {
    const point = this.picture?.points[index];
    byId("pointer-place").textContent = x === null ? "" : `x ${x.toFixed(1)}  y ${y.toFixed(1)} px`
      + (point ? `  \u00b7  point ${point.id}, row ${point.row}, column ${point.col}` : "");
  }

  tellZoom() {
    const percent = this.view.transform.scale * 100;
    byId("zoom-level").textContent = `${percent.toFixed(percent < 10 ? 1 : 0)} %`;
  }
}
