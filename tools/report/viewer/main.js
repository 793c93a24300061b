// Puts the page together: what the address names is shown, and the keys that hold everywhere.

import { runCsv } from "./csv.js";
import { byId, showText } from "./element.js";
import { saveText } from "./file_saving.js";
import { installHelp } from "./help_dialog.js";
import { PageData } from "./page_data.js";
import { PicturePage } from "./picture_page.js";
import { PictureTable } from "./picture_table.js";
import { installTheme } from "./theme.js";

const TITLE = "Quorvex report";

class Report {
  constructor() {
    this.page = new PageData();
    this.pictures = new PictureTable(this.page);
    this.one = new PicturePage(this.page);
    this.tellRun();
    addEventListener("hashchange", () => this.showAddressed());
    document.addEventListener("keydown", (event) => this.key(event));
    this.showAddressed();
  }

  tellRun() {
    const { run, summaries } = this.page;
    const detection = this.page.isDirect ? "direct detection" : "the library\u2019s detection";
    byId("run-facts").textContent = [`version ${run.version}`, detection, run.options]
      .filter(Boolean).join(" \u00b7 ");
    const button = byId("download-run-csv");
    button.disabled = !summaries.some((summary) => summary.verdict !== "failed");
    button.addEventListener("click", () => saveText("points.csv", runCsv(this.page)));
    if (summaries.length > 0 && button.disabled) {
      showText(byId("page-fault"), "No points were found in any picture of this run, so there is no list.");
    }
  }

  showAddressed() {
    const index = Number(/^#picture=(\d+)$/.exec(location.hash)?.[1] ?? NaN);
    const last = this.one.index;
    const isOne = index < this.page.count;
    byId("table-screen").hidden = isOne;
    byId("picture-screen").hidden = !isOne;
    if (isOne) {
      this.one.open(index);
      document.title = `${this.page.summaries[index].name} \u2013 ${TITLE}`;
      scrollTo(0, 0);
      byId("stage").focus({ preventScroll: true });
    } else {
      document.title = TITLE;
      this.one.close();
      this.pictures.focusRow(last);
    }
  }

  key(event) {
    const isTyped = event.target.matches("input:not([type=checkbox], [type=radio], [type=range]), select");
    if (event.ctrlKey || event.metaKey || event.altKey || isTyped || document.querySelector("dialog[open]")) {
      return;
    }
    const action = event.key === "?" ? () => byId("help-open").click()
      : this.one.index < 0 ? this.tableKeys()[event.key] : this.pictureKeys()[event.key];
    if (action) {
      event.preventDefault();
      action();
    }
  }

  tableKeys() {
    return { "/": () => byId("text-filter").focus() };
  }

  pictureKeys() {
    const { one } = this;
    return {
      "+": () => one.view.zoomIn(),
      "=": () => one.view.zoomIn(),
      "-": () => one.view.zoomOut(),
      "0": () => one.view.fit(),
      n: () => one.step(1),
      p: () => one.step(-1),
      c: () => byId("copy-point").click(),
      "[": () => byId("previous-picture").click(),
      "]": () => byId("next-picture").click(),
      Escape: () => (one.selected < 0 ? byId("to-table").click() : one.select(-1)),
    };
  }
}

installTheme(byId("theme"));
installHelp(byId("help"), byId("help-text"), byId("help-open"));
try {
  new Report();
} catch (fault) {
  showText(byId("page-fault"), `This page is damaged and cannot be shown: ${fault.message}`);
  throw fault;
}
