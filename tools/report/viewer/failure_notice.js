// Why a picture failed: the stage, the reason, what to change. Diagnostic pictures that a sentence
// names lead to the strip.

import { element } from "./element.js";

function withLinks(text, strip) {
  return text.split(/(\w+\.bmp)/).map((part) => {
    if (!strip.has(part)) {
      return part;
    }
    const link = element("button", { type: "button", class: "link" }, part);
    link.addEventListener("click", () => strip.enlargeFile(part));
    return link;
  });
}

/**
 * @param {HTMLElement} section
 * @param {Object} picture
 * @param {StageStrip} strip
 */
export function fillFailureNotice(section, picture, strip) {
  section.hidden = picture.verdict !== "failed";
  if (section.hidden) {
    section.replaceChildren();
    return;
  }
  const { stage = "", reason = "", advice = "" } = picture.failure ?? {};
  const rows = [["stage", stage], ["reason", reason || picture.message], ["what to change", advice]]
    .filter(([, text]) => text !== "")
    .flatMap(([name, text]) => [element("dt", {}, name), element("dd", {}, ...withLinks(text, strip))]);
  section.replaceChildren(element("h3", {}, "No points were found in this picture"),
    element("dl", {}, ...rows));
}
