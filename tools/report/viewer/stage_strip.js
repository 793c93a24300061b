// The diagnostic pictures of a detection as a strip, each with what it shows and what a healthy one
// looks like, and one of them enlarged.

import { byId, element } from "./element.js";

const DIRECT_SENTENCE = "The direct detection leaves no diagnostic pictures.";
const NONE_SENTENCE = "This picture has no diagnostic pictures: its detection did not come so far.";

export class StageStrip {
  /** @param {HTMLElement} section */
  constructor(section) {
    this.section = section;
    this.dialog = byId("stage-dialog");
    this.stages = [];
    this.open = 0;
    byId("stage-previous").addEventListener("click", () => this.step(-1));
    byId("stage-next").addEventListener("click", () => this.step(1));
    this.dialog.addEventListener("keydown", (event) => {
      const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
      if (step) {
        event.preventDefault();
        this.step(step);
      }
    });
  }

  /**
   * @param {{file: string, shows: string, healthy: string}[]} stages of the run; none when direct
   * @param {function(string): string} addressOf a file's image, "" when there is none
   */
  show(stages, isDirect, addressOf) {
    this.dialog.close();
    this.stages = stages.map((stage) => ({ ...stage, address: addressOf(stage.file) }));
    const heading = element("h3", {}, "Diagnostic pictures");
    if (isDirect || !this.stages.some((stage) => stage.address)) {
      const sentence = isDirect ? DIRECT_SENTENCE : NONE_SENTENCE;
      this.section.replaceChildren(heading, element("p", { class: "quiet" }, sentence));
      return;
    }
    this.section.replaceChildren(heading, element("ol", { class: "strip" },
      ...this.stages.map((stage, index) => this.item(stage, index))));
  }

  item(stage, index) {
    const caption = [
      element("b", {}, `${index + 1} ${stage.file}`),
      element("span", {}, stage.shows),
      element("span", { class: "quiet" }, `healthy: ${stage.healthy}`),
    ];
    if (!stage.address) {
      return element("li", {}, element("div", { class: "no-stage" }, "not written"),
        element("div", { class: "caption" }, ...caption));
    }
    const button = element("button", { type: "button", "aria-label": `Enlarge ${stage.file}` },
      element("img", { loading: "lazy", alt: "", src: stage.address }));
    button.addEventListener("click", () => this.enlarge(index));
    return element("li", {}, button, element("div", { class: "caption" }, ...caption));
  }

  /** Whether the strip has the file's picture. */
  has(file) {
    return this.stages.some((stage) => stage.file === file && stage.address);
  }

  enlargeFile(file) {
    this.enlarge(this.stages.findIndex((stage) => stage.file === file));
  }

  enlarge(index) {
    this.open = index;
    const stage = this.stages[index];
    byId("stage-title").textContent = `${index + 1} ${stage.file}`;
    byId("stage-picture").src = stage.address;
    byId("stage-picture").alt = `${stage.file}: ${stage.shows}`;
    byId("stage-facts").replaceChildren(
      element("dt", {}, "shows"), element("dd", {}, stage.shows),
      element("dt", {}, "healthy"), element("dd", {}, stage.healthy));
    if (!this.dialog.open) {
      this.dialog.showModal();
    }
  }

  // To the next one that was written, around the ends.
  step(step) {
    const { length } = this.stages;
    let index = this.open;
    do {
      index = (index + step + length) % length;
    } while (!this.stages[index].address);
    this.enlarge(index);
  }
}
