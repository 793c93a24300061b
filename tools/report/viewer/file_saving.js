// Texts that leave the page: as a downloaded file, or through the clipboard.

const ADDRESS_LIFE_MS = 60000;  // a browser may ask first where the file shall go

/** @param {string[]} pieces */
export function saveText(name, pieces) {
  const address = URL.createObjectURL(new Blob(pieces, { type: "text/csv;charset=utf-8" }));
  const link = document.createElement("a");
  link.href = address;
  link.download = name;
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(address), ADDRESS_LIFE_MS);
}

/** The last part of a path, without its ending, as a file name that every system takes. */
export function plainFileName(path) {
  const name = path.split(/[\\/]/).pop().replace(/\.[^.]*$/, "");
  return name.replace(/[\u0000-\u001f<>:"|?*]/g, "_") || "picture";
}

// Where the page may not use the clipboard, as from a file in some browsers.
function copySelected(text) {
  const active = document.activeElement;
  const area = document.createElement("textarea");
  area.value = text;
  area.className = "visually-hidden";
  document.body.append(area);
  area.select();
  const copied = document.execCommand("copy");
  area.remove();
  active?.focus({ preventScroll: true });
  return copied;
}

/** @returns {Promise<boolean>} whether the clipboard has the text */
export async function copyText(text) {
  try {
    await navigator.clipboard.writeText(text);
    return true;
  } catch {
    return copySelected(text);
  }
}
