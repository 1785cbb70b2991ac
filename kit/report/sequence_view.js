// The picture of a sequence: a piano roll with bars and tempos. Its width is the sequence's length
// in ticks, so that all bars of a time signature are equal.
import { colour, countText, element, prepareCanvas } from "./theme.js";

const height = 168;
const rulerHeight = 22;

export class SequenceView {
  constructor(asset, { sequence }) {
    this.sequence = sequence;
    this.ticks = Math.max(1, sequence.ticks);
    this.notes = [];
    for (let i = 0; i < sequence.notes.length; i += 5) {
      const [start, length, number, velocity, channel] = sequence.notes.slice(i, i + 5);
      this.notes.push({ start, length, number, velocity, channel });
    }
    this.canvas = element("canvas", {
      role: "img",
      "aria-label": `Piano roll of ${countText(this.notes.length, "note")}`,
    });
    this.canvas.style.height = `${height}px`;
    this.cursor = element("div", { className: "cursor", hidden: "" });
    this.element = element("div", { className: "frame roll" }, this.canvas, this.cursor);
  }

  // Returns the seconds at a tick.
  secondsAt(tick) {
    const { tempos, division } = this.sequence;
    const [start, seconds, microseconds] = lastUpTo(tick, tempos, ([start]) => start);
    return seconds + (tick - start) * secondsPerTick(division, microseconds);
  }

  tickAt(time) {
    const { tempos, division } = this.sequence;
    const [start, seconds, microseconds] = lastUpTo(time, tempos, ([, seconds]) => seconds);
    const step = secondsPerTick(division, microseconds);
    return step > 0 ? start + (time - seconds) / step : start;
  }

  measure() {
    this.width = this.canvas.clientWidth;
  }

  draw() {
    const context = prepareCanvas(this.canvas, this.width, height);
    context.font = "11px system-ui, sans-serif";
    this.drawBars(context, this.width);
    this.drawTempos(context, this.width);
    this.drawNotes(context, this.width);
  }

  drawBars(context, width) {
    const [lines, numbers] = [colour("line"), colour("muted")];
    let free = 0;
    for (const { tick, bar } of this.bars(width)) {
      const x = (tick / this.ticks) * width;
      if (x < free) {
        continue;
      }
      context.fillStyle = lines;
      context.fillRect(x, 0, 1, height);
      context.fillStyle = numbers;
      context.fillText(String(bar), x + 4, height - 5);
      free = x + context.measureText(String(bar)).width + 12;
    }
  }

  // Returns the bars, or so many of them as have room for a line and a number.
  bars(width) {
    const { division, signatures } = this.sequence;
    const bars = [];
    if (division >= 0x8000 || division === 0) {
      return bars;
    }
    const changes = signatures[0]?.[0] === 0 ? signatures : [[0, 4, 2], ...signatures];
    let bar = 1;
    changes.forEach(([start, numerator, power], i) => {
      const end = Math.min(changes[i + 1]?.[0] ?? this.ticks, this.ticks);
      const length = Math.max(1, (division * 4 * numerator) / 2 ** power);
      const pixels = (length / this.ticks) * width;
      const step = 2 ** Math.max(0, Math.ceil(Math.log2(28 / pixels)));
      for (let tick = start, number = bar; tick < end; tick += step * length, number += step) {
        bars.push({ tick, bar: number });
      }
      bar += Math.max(0, Math.ceil((end - start) / length));
    });
    return bars;
  }

  drawTempos(context, width) {
    let free = 0;
    this.sequence.tempos.forEach(([tick, , microseconds], i, { length }) => {
      const isReplaced = i + 1 < length && this.sequence.tempos[i + 1][0] === tick;
      const x = (tick / this.ticks) * width;
      if (isReplaced || x < free || microseconds === 0) {
        return;
      }
      const text = `♩ = ${(60e6 / microseconds).toFixed(1).replace(/\.0$/, "")}`;
      context.fillStyle = colour("accent");
      context.fillRect(x, 0, 1.5, rulerHeight - 6);
      context.fillStyle = colour("text");
      context.fillText(text, x + 5, 12);
      free = x + context.measureText(text).width + 14;
    });
  }

  drawNotes(context, width) {
    const numbers = this.notes.map(({ number }) => number);
    const lowest = numbers.reduce((least, number) => Math.min(least, number), 127) - 1;
    const highest = numbers.reduce((most, number) => Math.max(most, number), 0) + 1;
    const room = height - 2 * rulerHeight;
    const row = Math.min(14, room / (highest - lowest + 1));
    const top = rulerHeight + (room - row * (highest - lowest + 1)) / 2;
    context.fillStyle = colour("wave");
    for (const { start, length, number, velocity } of this.notes) {
      const x = (start / this.ticks) * width;
      const noteWidth = Math.max(1.5, (length / this.ticks) * width - 1);
      context.globalAlpha = 0.3 + (0.7 * velocity) / 127;
      context.beginPath();
      const y = top + (highest - number) * row + 0.5;
      context.roundRect(x, y, noteWidth, Math.max(1.5, row - 1), Math.min(2, noteWidth / 2));
      context.fill();
    }
    context.globalAlpha = 1;
  }

  showPosition(seconds) {
    const place = seconds === null ? -1 : this.tickAt(seconds) / this.ticks;
    this.cursor.hidden = place < 0 || place > 1;
    this.cursor.style.transform = `translateX(${place * this.width}px)`;
  }
}

// Returns the last of sorted rows whose key isn't over a limit, or the first one.
function lastUpTo(limit, rows, keyOf) {
  let first = 0;
  let end = rows.length;
  while (end - first > 1) {
    const middle = (first + end) >> 1;
    if (keyOf(rows[middle]) <= limit) {
      first = middle;
    } else {
      end = middle;
    }
  }
  return rows[first];
}

// Ticks divide a quarter note, or a frame if the top bit of the division is set.
function secondsPerTick(division, microseconds) {
  if (division < 0x8000) {
    return division > 0 ? microseconds / 1e6 / division : 0;
  }
  const frames = 256 - (division >> 8);
  const ticks = division & 0xff;
  return ticks > 0 ? 1 / ticks / (frames === 29 ? 30000 / 1001 : frames) : 0;
}
