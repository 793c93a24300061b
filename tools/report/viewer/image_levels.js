// A picture at its own size and halved again and again, so that a drawing costs about as much as the
// view has pixels, however large the picture is and however small it is shown.

const SMALLEST_SIDE = 256;      // pixels; smaller levels would save nothing
const SHARP_FROM = 1.5;         // device pixels per picture pixel; from there on pixels stay squares

function halved(source, width, height) {
  const canvas = document.createElement("canvas");
  canvas.width = Math.max(1, Math.round(width / 2));
  canvas.height = Math.max(1, Math.round(height / 2));
  const context = canvas.getContext("2d", { alpha: false });
  context.imageSmoothingQuality = "high";
  context.drawImage(source, 0, 0, canvas.width, canvas.height);
  return canvas;
}

/** @returns {Promise<ImageBitmap>} rejects when the text is no picture */
async function decoded(address) {
  const image = new Image();
  image.src = address;
  await image.decode();
  return createImageBitmap(image);
}

export class ImageLevels {
  /** @param {string} address a data: address */
  static async load(address) {
    return new ImageLevels(await decoded(address));
  }

  constructor(bitmap) {
    this.levels = [bitmap];
    let last = bitmap;
    while (Math.max(last.width, last.height) > SMALLEST_SIDE) {
      last = halved(last, last.width, last.height);
      this.levels.push(last);
    }
  }

  /** Frees the pixels. */
  close() {
    this.levels[0].close();
    for (const canvas of this.levels.slice(1)) {
      canvas.width = 0;
    }
    this.levels = [];
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {ViewTransform} transform
   * @param {number} density device pixels per CSS pixel
   */
  draw(context, transform, density) {
    const [full] = this.levels;
    const devicePerPixel = transform.scale * density * transform.imageWidth / full.width;
    const wanted = Math.floor(-Math.log2(devicePerPixel));
    const level = this.levels[Math.min(Math.max(0, wanted), this.levels.length - 1)];

    // Screen px per level pixel, which may differ a little between x and y after the halving.
    const stepX = transform.scale * transform.imageWidth / level.width;
    const stepY = transform.scale * transform.imageHeight / level.height;
    const left = transform.left - transform.scale / 2;
    const top = transform.top - transform.scale / 2;

    // Only what is in view, in whole level pixels.
    const x0 = Math.max(0, Math.floor(-left / stepX));
    const y0 = Math.max(0, Math.floor(-top / stepY));
    const x1 = Math.min(level.width, Math.ceil((transform.viewWidth - left) / stepX));
    const y1 = Math.min(level.height, Math.ceil((transform.viewHeight - top) / stepY));
    if (x1 <= x0 || y1 <= y0) {
      return;
    }
    context.setTransform(density, 0, 0, density, 0, 0);
    context.imageSmoothingEnabled = devicePerPixel < SHARP_FROM;
    context.imageSmoothingQuality = "low";
    context.drawImage(level, x0, y0, x1 - x0, y1 - y0,
      left + x0 * stepX, top + y0 * stepY, (x1 - x0) * stepX, (y1 - y0) * stepY);
  }
}
