// The picture of a wave: its outline with the loop, the error of its compression, and the seam of
// the loop. The wheel, two buttons and the keys + - 0 zoom.
import { hasLoop, outlinesFrom, qualityOf, samplesOf } from "./data.js";
import { Outline, drawOutline, drawSamples } from "./outline.js";
import { colour, element, numberText, prepareCanvas } from "./theme.js";

const waveHeight = 128;
const errorHeight = 56;
const clippedHeight = 7; // of the mark of samples at the limit
const fewestSamples = 24; // across the picture, at the deepest zoom

export class WaveView {
  constructor(asset, picture) {
    this.asset = asset;
    this.picture = picture;
    this.count = asset.wave.samples;
    this.outline = new Outline(outlinesFrom(picture.peaks), picture.bucket, this.count);
    if (picture.errorPeaks) {
      const outlineOf = (peaks) =>
        new Outline(outlinesFrom(peaks), picture.sourceBucket, picture.sourceSamples);
      this.source = outlineOf(picture.sourcePeaks);
      this.error = outlineOf(picture.errorPeaks);
    }
    this.height = waveHeight + (this.error ? errorHeight : 0);
    this.first = 0;
    this.shown = this.count;
    this.build();
  }

  build() {
    this.canvas = element("canvas", { role: "img", "aria-label": this.description() });
    this.canvas.style.height = `${this.height}px`;
    this.cursor = element("div", { className: "cursor", hidden: "" });
    const frame = element("div", { className: "frame" }, this.canvas, this.cursor);
    this.element = element("div", { className: "wave" }, frame, this.seam());
    this.addDragging(frame);
  }

  description() {
    const loop = hasLoop(this.asset) ? ", with its loop marked" : "";
    const error = this.error ? ", and the error of its compression" : "";
    return `Waveform of ${numberText(this.count)} samples${loop}${error}`;
  }

  seam() {
    if (!this.picture.seam) {
      return null;
    }
    this.seamCanvas = element("canvas", {
      role: "img",
      "aria-label": "The last samples of the loop and the first, enlarged",
    });
    const { before, after } = this.picture.seam;
    const jump = Math.abs(after[0] - before[before.length - 1]);
    return element(
      "figure",
      { className: "seam" },
      this.seamCanvas,
      element("figcaption", { text: `Seam: a step of ${numberText(jump)}` }),
    );
  }

  // The samples, decoded once they are needed: for deep zooms and for playing.
  samples() {
    if (!this.decoded && this.picture.audio) {
      this.decoded = samplesOf(this.asset, this.picture);
      this.outline.samples = this.decoded;
    }
    return this.decoded;
  }

  measure() {
    this.width = this.canvas.clientWidth;
    if (this.seamCanvas) {
      const { clientWidth: width, clientHeight: height } = this.seamCanvas;
      this.seamSize = { width, height };
    }
  }

  draw() {
    const { width } = this;
    const context = prepareCanvas(this.canvas, width, this.height);
    const view = { start: this.first, step: this.shown / width };
    if (view.step < this.picture.bucket) {
      this.samples();
    }
    this.drawLoop(context, view, width);
    this.drawWave(context, view, width);
    if (this.error) {
      this.drawError(context, view, width);
    }
    if (this.seamCanvas) {
      this.drawSeam();
    }
  }

  drawLoop(context, view, width) {
    context.fillStyle = colour("line");
    context.fillRect(0, waveHeight / 2 - 0.5, width, 1);
    if (!hasLoop(this.asset)) {
      return;
    }
    const { start, end } = this.asset.wave.loop;
    const [left, right] = [start, end].map((sample) => (sample - view.start) / view.step);
    context.fillStyle = colour("loop");
    context.fillRect(left, 0, right - left, waveHeight);
    context.fillStyle = colour("accent");
    context.fillRect(left, 0, 1.5, waveHeight);
    context.fillRect(right - 1.5, 0, 1.5, waveHeight);
  }

  drawWave(context, view, width) {
    const place = { top: 0, width, height: waveHeight, range: 1.04 };
    if (this.source) {
      drawOutline(context, this.source, view, { ...place, colour: colour("source") });
    }
    if (view.step < 0.75 && this.decoded) {
      drawSamples(context, this.decoded, view, { ...place, colour: colour("wave") });
    } else {
      drawOutline(context, this.outline, view, { ...place, colour: colour("wave") });
    }
    this.drawClipping(context, view, width);
  }

  // Marks where samples are at a limit of their width.
  drawClipping(context, view, width) {
    const highest = this.asset.wave.bits === 8 ? 127 / 128 : 32767 / 32768;
    context.fillStyle = colour("bad");
    for (let x = 0; x < width && this.picture.clipped > 0; ++x) {
      const found = this.outline.range(
        view.start + x * view.step,
        view.start + (x + 1) * view.step,
      );
      if (found && found[1] >= highest) {
        context.fillRect(Math.max(0, x - 1), 0, 3, clippedHeight);
      }
      if (found && found[0] <= -1) {
        context.fillRect(Math.max(0, x - 1), waveHeight - clippedHeight, 3, clippedHeight);
      }
    }
  }

  // The error has a scale of its own, so that a small one can be seen.
  drawError(context, view, width) {
    const range = Math.max(Math.abs(qualityOf(this.asset).worstError), 1) / 32768;
    const top = waveHeight + 14;
    const height = errorHeight - 14;
    context.fillStyle = colour("line");
    context.fillRect(0, waveHeight + 1, width, 1);
    const place = { top, width, height, range, colour: colour("error-wave") };
    drawOutline(context, this.error, view, place);
    context.fillStyle = colour("muted");
    context.font = "11px system-ui, sans-serif";
    context.textAlign = "right"; // most sounds are loud, and their errors large, at the left
    context.fillText(`Error, ×${numberText(Math.max(1, Math.round(1 / range)))}`, width, top - 3);
  }

  drawSeam() {
    const { width, height } = this.seamSize;
    const context = prepareCanvas(this.seamCanvas, width, height);
    const { before, after } = this.picture.seam;
    const samples = Float32Array.from([...before, ...after], (sample) => sample / 32768);
    const largest = samples.reduce((most, sample) => Math.max(most, Math.abs(sample)), 1e-4);
    const step = (samples.length - 1) / (width - 6);
    const view = { start: -3 * step, step };
    const seam = (before.length - 0.5 - view.start) / step;
    context.fillStyle = colour("loop");
    context.fillRect(0, 0, width, height);
    context.fillStyle = colour("accent");
    context.fillRect(seam - 0.75, 0, 1.5, height);
    const place = { top: 0, width, height, range: largest * 1.15, colour: colour("wave") };
    drawSamples(context, samples, view, place);
  }

  // Zooms around a place of the picture, from 0 at its left to 1.
  zoom(factor, place = 0.5) {
    const centre = this.first + place * this.shown;
    const fewest = Math.min(fewestSamples, this.count);
    this.shown = Math.max(fewest, Math.min(this.count, this.shown * factor));
    this.moveTo(centre - place * this.shown);
  }

  move(pixels) {
    this.moveTo(this.first + (pixels * this.shown) / this.width);
  }

  moveTo(first) {
    this.first = Math.max(0, Math.min(this.count - this.shown, first));
    this.draw();
  }

  addDragging(frame) {
    let last = null;
    frame.addEventListener("pointerdown", (event) => {
      last = this.shown < this.count ? event.clientX : null;
    });
    frame.addEventListener("pointermove", (event) => {
      if (last !== null && event.buttons === 1) {
        this.move(last - event.clientX);
        last = event.clientX;
      }
    });
    frame.addEventListener("dblclick", () => this.zoom(Infinity));
  }

  // Shows the place that sounds, in samples; null for none.
  showPosition(sample) {
    const place = sample === null ? -1 : (sample - this.first) / this.shown;
    this.cursor.hidden = place < 0 || place > 1;
    this.cursor.style.transform = `translateX(${place * this.width}px)`;
  }
}
