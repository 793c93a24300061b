// Elements in one expression. Text becomes text nodes and attributes, never markup, since names and
// messages come from files.

const SVG_NAMESPACE = "http://www.w3.org/2000/svg";

function setAttributes(target, attributes) {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === true) {
      target.setAttribute(name, "");
    } else if (value !== false && value !== undefined && value !== null) {
      target.setAttribute(name, value);
    }
  }
  return target;
}

/**
 * @param {string} tag
 * @param {Object<string, *>} [attributes] true: without a value; false, null, undefined: left out
 * @param {...(Node|string)} children
 */
export function element(tag, attributes = {}, ...children) {
  const made = setAttributes(document.createElement(tag), attributes);
  made.append(...children);
  return made;
}

/** As element(), of the SVG namespace. */
export function svgElement(tag, attributes = {}, ...children) {
  const made = setAttributes(document.createElementNS(SVG_NAMESPACE, tag), attributes);
  made.append(...children);
  return made;
}

/** @returns {HTMLElement} */
export function byId(id) {
  return document.getElementById(id);
}

/** Shows the text, or hides the element when there is none. */
export function showText(target, text) {
  target.textContent = text;
  target.hidden = text === "";
}
