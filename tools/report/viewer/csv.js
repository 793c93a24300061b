// The run's points as the tables that the command writes, byte for byte.

import { generalNumber } from "./number_text.js";

const POSITION_DIGITS = 9;    // significant ones; a 32-bit float survives the text
const COVARIANCE_DIGITS = 6;
const FAILED_KIND = "failed";

function csvField(text) {
  return /[,"\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}

function covarianceField(point, part) {
  return point.covariance ? generalNumber(point.covariance[part], COVARIANCE_DIGITS) : "";
}

const POINT_FIELDS = {
  id: (point) => String(point.id),
  row: (point) => String(point.row),
  col: (point) => String(point.col),
  x: (point) => generalNumber(point.x, POSITION_DIGITS),
  y: (point) => generalNumber(point.y, POSITION_DIGITS),
  kind: (point) => point.kind,
  cxx: (point) => covarianceField(point, 0),
  cxy: (point) => covarianceField(point, 1),
  cyy: (point) => covarianceField(point, 2),
};

function csvRow(columns, fieldOf) {
  return `${columns.map(fieldOf).join(",")}\n`;
}

function csvRows(picture, columns) {
  if (picture.verdict === "failed") {
    const fields = { image: csvField(picture.name), kind: FAILED_KIND };
    return csvRow(columns, (column) => fields[column] ?? "");
  }
  const name = csvField(picture.name);
  return picture.points
    .map((point) => csvRow(columns, (column) => (
      column === "image" ? name : POINT_FIELDS[column](point))))
    .join("");
}

/** A point as in the list: id,row,col,x,y. */
export function pointText(point) {
  return ["id", "row", "col", "x", "y"].map((column) => POINT_FIELDS[column](point)).join(",");
}

/** The list of one picture, as the command writes it for this picture alone. */
export function pictureCsv(run, picture) {
  const columns = run.columns.filter((column) => column !== "image");
  return csvRow(columns, (column) => column) + csvRows(picture, columns);
}

/**
 * The table of the whole run, in pieces.
 * @param {PageData} page
 * @returns {string[]} empty when all pictures failed: the command writes nothing then, either
 */
export function runCsv(page) {
  if (!page.summaries.some((summary) => summary.verdict !== "failed")) {
    return [];
  }
  const { columns } = page.run;
  return [csvRow(columns, (column) => column),
    ...page.summaries.map(({ index }) => csvRows(page.picture(index), columns))];
}
