// The table of the run's pictures: sorted by any column, filtered by text and verdict.

import { byId, element, showText } from "./element.js";
import { counted, shortPixels } from "./number_text.js";
import { VERDICTS } from "./page_data.js";

const VERDICT_ORDER = ["failed", "check", "good"];  // what needs a look comes first
const AHEAD = "400px";  // of the view, from where thumbnails are loaded

/** Columns: the header, what to sort by, and whether the largest come first at the first click. */
const TABLE_COLUMNS = [
  { key: "index", title: "Picture", value: (row) => row.index },
  { key: "name", title: "Name", value: (row) => row.name },
  { key: "verdict", title: "Verdict", value: (row) => VERDICT_ORDER.indexOf(row.verdict) },
  { key: "found", title: "Found", value: (row) => row.found, isNumber: true },
  { key: "missing", title: "Missing", value: (row) => row.missing, isNumber: true },
  { key: "filled", title: "Filled in", value: (row) => row.filled, isNumber: true },
  { key: "worst", title: "Worst residual", unit: "px", value: (row) => row.worst, isNumber: true },
];

// What is not known comes last in both directions.
function compareRows(column, direction) {
  return (a, b) => {
    const [first, second] = [column.value(a), column.value(b)];
    if (first === null || second === null) {
      return (first === null) - (second === null) || a.index - b.index;
    }
    const order = typeof first === "string"
      ? first.localeCompare(second, undefined, { numeric: true }) : first - second;
    return direction * order || a.index - b.index;
  };
}

export class PictureTable {
  /** @param {PageData} page */
  constructor(page) {
    this.page = page;
    this.table = byId("pictures");
    this.body = this.table.tBodies[0];
    this.sorted = { key: "index", direction: 1 };
    this.thumbnails = new IntersectionObserver((entries) => this.loadThumbnails(entries),
      { rootMargin: AHEAD });
    this.tellCounts();
    this.makeHeader();
    this.rows = page.summaries.map((summary) => ({ summary, row: this.makeRow(summary) }));
    byId("text-filter").addEventListener("input", () => this.filter());
    byId("verdict-filter").addEventListener("change", () => this.filter());
    this.body.addEventListener("click", (event) => this.openClicked(event));
    this.body.addEventListener("keydown", (event) => this.moveBetweenRows(event));
    this.sort();
    this.filter();
  }

  tellCounts() {
    const { summaries } = this.page;
    const count = (verdict) => summaries.filter((row) => row.verdict === verdict).length;
    byId("counts").replaceChildren(...Object.entries(VERDICTS).map(([verdict, { text, mark }]) => (
      element("span", { class: `verdict ${verdict}` }, `${mark} ${count(verdict)} ${text}`))));
    byId("counts").hidden = summaries.length === 0;
    byId("table-screen").querySelector(".filters").hidden = summaries.length === 0;
  }

  makeHeader() {
    this.headers = TABLE_COLUMNS.map((column) => {
      const button = element("button", { type: "button" }, column.title,
        column.unit ? element("span", { class: "unit" }, ` ${column.unit}`) : "");
      button.addEventListener("click", () => this.sortBy(column));
      const cell = element("th", {
        scope: "col", role: "columnheader", class: column.isNumber ? "number" : "",
      }, button);
      return { column, cell };
    });
    this.table.tHead.rows[0].append(...this.headers.map(({ cell }) => cell));
  }

  makeRow(summary) {
    const { text, mark } = VERDICTS[summary.verdict];
    const link = element("a", { href: `#picture=${summary.index}` }, summary.name || "(no name)");
    const isFailed = summary.verdict === "failed";
    const start = `${summary.name}: `;
    const message = summary.message.startsWith(start)
      ? summary.message.slice(start.length) : summary.message;
    const figures = [
      ["Found", isFailed ? "\u2013" : String(summary.found)],
      ["Missing", summary.missing === null ? "\u2013" : String(summary.missing)],
      ["Filled in", isFailed ? "\u2013" : String(summary.filled)],
      ["Worst px", shortPixels(summary.worst)],
    ];
    const image = element("img", { alt: "", class: "thumbnail" });
    const row = element("tr", { role: "row", "data-picture": summary.index },
      element("td", { role: "cell", class: "thumbnail-cell" }, image),
      element("td", { role: "cell", class: "name-cell" }, link,
        element("span", { class: "row-message" }, message)),
      element("td", { role: "cell", class: "verdict-cell" },
        element("span", { class: `verdict ${summary.verdict}` }, `${mark} ${text}`)),
      ...figures.map(([name, figure]) => (
        element("td", { role: "cell", class: "number", "data-name": name }, figure))));
    this.thumbnails.observe(row);
    return row;
  }

  loadThumbnails(entries) {
    for (const { isIntersecting, target } of entries) {
      if (isIntersecting) {
        this.thumbnails.unobserve(target);
        const address = this.page.imageAddress(Number(target.dataset.picture), "thumbnail");
        const image = target.querySelector("img");
        if (address) {
          image.src = address;
        } else {
          image.replaceWith(element("span", { class: "thumbnail no-thumbnail" }, "no picture"));
        }
      }
    }
  }

  sortBy(column) {
    const isSame = this.sorted.key === column.key;
    const first = column.isNumber ? -1 : 1;
    this.sorted = { key: column.key, direction: isSame ? -this.sorted.direction : first };
    this.sort();
  }

  sort() {
    const { key, direction } = this.sorted;
    for (const { column, cell } of this.headers) {
      const order = direction > 0 ? "ascending" : "descending";
      cell.setAttribute("aria-sort", column.key === key ? order : "none");
    }
    const compare = compareRows(TABLE_COLUMNS.find((column) => column.key === key), direction);
    this.rows.sort((a, b) => compare(a.summary, b.summary));
    this.body.append(...this.rows.map(({ row }) => row));
  }

  filter() {
    const wanted = byId("text-filter").value.trim().toLowerCase();
    const verdict = byId("verdict-filter").value;
    let shown = 0;
    for (const { summary, row } of this.rows) {
      const text = `${summary.name}\n${summary.message}`.toLowerCase();
      row.hidden = !((!verdict || summary.verdict === verdict) && text.includes(wanted));
      shown += row.hidden ? 0 : 1;
    }
    const total = this.rows.length;
    byId("shown-count").textContent = shown === total ? counted(total, "picture")
      : `${shown} of ${counted(total, "picture")}`;
    this.table.hidden = shown === 0;
    showText(byId("no-rows"), total === 0 ? "This run has no pictures."
      : shown === 0 ? "No picture is like that." : "");
  }

  openClicked(event) {
    const row = event.target.closest("tr[data-picture]");
    if (row && !event.target.closest("a") && getSelection().isCollapsed) {
      location.hash = `picture=${row.dataset.picture}`;
    }
  }

  moveBetweenRows(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (!step) {
      return;
    }
    const links = [...this.body.querySelectorAll("tr:not([hidden]) a")];
    const next = links[links.indexOf(document.activeElement) + step];
    if (next) {
      event.preventDefault();
      next.focus();
    }
  }

  /** Where the picture that was open stands. */
  focusRow(index) {
    this.body.querySelector(`tr[data-picture="${index}"] a`)?.focus();
  }
}
