// Outlines of samples: the lowest and the highest sample of each pixel, from the samples themselves
// or from the outlines that the page has of them.

export class Outline {
  // `samples` may be missing: then nothing finer than the finest bucket can be seen.
  constructor(outlines, bucket, count, samples) {
    this.outlines = outlines;
    this.bucket = bucket;
    this.count = count;
    this.samples = samples;
  }

  // Returns the lowest and the highest sample from `start` up to `end`, from -1 to 1, or null.
  range(start, end) {
    const first = Math.max(0, Math.floor(start));
    const last = Math.min(this.count, Math.max(Math.ceil(end), first + 1));
    if (first >= last) {
      return null;
    }
    return this.samples && end - start < 4 * this.bucket
      ? rangeOf(this.samples, first, last, 1)
      : this.rangeFromOutlines(first, last);
  }

  // The coarsest buckets that are no longer than the range.
  rangeFromOutlines(first, last) {
    let zoom = 0;
    let bucket = this.bucket;
    while (zoom + 1 < this.outlines.length && 4 * bucket <= last - first) {
      ++zoom;
      bucket *= 4;
    }
    const outline = this.outlines[zoom];
    const end = Math.min(outline.length / 2, Math.ceil(last / bucket));
    return rangeOf(outline, 2 * Math.floor(first / bucket), 2 * end, 32768);
  }
}

function rangeOf(values, first, last, scale) {
  let lowest = Infinity;
  let highest = -Infinity;
  for (let i = first; i < last; ++i) {
    const value = values[i];
    lowest = value < lowest ? value : lowest;
    highest = value > highest ? value : highest;
  }
  return [lowest / scale, highest / scale];
}

// Draws an outline as one shape between `top` and `top + height`. Values from -range to range fit.
export function drawOutline(context, outline, view, { top, width, height, range, colour }) {
  const middle = top + height / 2;
  const scale = height / 2 / range;
  context.fillStyle = colour;
  const pixel = 1 / context.getTransform().a;
  for (let x = 0; x < width; x += pixel) {
    // One sample more than the pixel has, so that it touches the next one.
    const start = view.start + x * view.step;
    const found = outline.range(start, start + pixel * view.step + 1);
    if (found) {
      const [lowest, highest] = found;
      const y = middle - highest * scale;
      context.fillRect(x, y - 0.5, pixel, (highest - lowest) * scale + 1);
    }
  }
}

// Draws samples one by one, as dots on a line: for zooms with several pixels to a sample.
export function drawSamples(context, samples, view, { top, width, height, range, colour }) {
  const first = Math.max(0, Math.floor(view.start));
  const last = Math.min(samples.length - 1, Math.ceil(view.start + width * view.step));
  const place = (i) => [
    (i - view.start) / view.step,
    top + height / 2 - (samples[i] / range) * (height / 2),
  ];
  context.strokeStyle = colour;
  context.fillStyle = colour;
  context.lineWidth = 1.25;
  context.beginPath();
  for (let i = first; i <= last; ++i) {
    context.lineTo(...place(i));
  }
  context.stroke();
  for (let i = first; i <= last && view.step < 0.2; ++i) {
    const [x, y] = place(i);
    context.fillRect(x - 1.75, y - 1.75, 3.5, 3.5);
  }
}
