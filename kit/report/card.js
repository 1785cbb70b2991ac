// One asset of the list. Its heading is always there; the rest is made when it comes near the view
// and removed when it is far again.
import { hasLoop, linkOf, nameOf, pictureOf, qualityOf, secondsOf, bytesFrom } from "./data.js";
import { SequencePreview } from "./preview.js";
import { SequenceView } from "./sequence_view.js";
import { WaveSound, isPlaying, play, stop } from "./sound.js";
import {
  button,
  countText,
  decibelText,
  element,
  numberText,
  sizeText,
  timeText,
} from "./theme.js";
import { WaveView } from "./wave_view.js";

const typeNames = {
  wave: "Wave",
  sequence: "Sequence",
  toneBank: "Tone bank",
  fxProgramBank: "FX program bank",
  fxOutputBank: "FX output bank",
  userAsset: "User asset",
  unknown: "Unknown type",
};

export class Card {
  constructor(asset) {
    this.asset = asset;
    this.name = nameOf(asset);
    this.link = linkOf(asset);
    this.body = element("div", { className: "body" });
    this.element = element(
      "article",
      { className: `card ${asset.type}`, tabindex: "-1", "aria-label": this.name },
      element(
        "header",
        {},
        element("h3", {}, element("a", { text: this.name, href: this.link })),
        element("p", {
          className: "id",
          text: asset.define === null ? "no define" : `id ${asset.id}`,
        }),
        element("p", { className: "kind", text: typeNames[asset.type] }),
      ),
      this.body,
    );
  }

  get isFilled() {
    return this.body.hasChildNodes();
  }

  // Makes the rest, which then has to be measured and drawn.
  fill() {
    this.body.style.height = "";
    const picture = pictureOf(this.asset);
    this.body.append(element("ul", { className: "facts" }, ...this.facts(picture)));
    this.view = this.viewOf(picture);
    this.body.append(
      this.view ? this.view.element : firstBytes(this.asset, picture),
      this.controls(picture),
    );
    this.showPlaying(null);
  }

  measure() {
    this.height = this.body.offsetHeight;
    this.view?.measure();
  }

  empty() {
    if (this.isFilled && !isPlaying(this)) {
      this.body.style.height = `${this.height}px`;
      this.body.replaceChildren();
      this.view = this.playButton = this.loopButton = null;
    }
  }

  viewOf(picture) {
    if (picture.peaks) {
      return new WaveView(this.asset, picture);
    }
    return picture.sequence ? new SequenceView(this.asset, picture) : null;
  }

  facts(picture) {
    const facts = [`${sizeText(this.asset.bytes)} at offset ${numberText(this.asset.offset)}`];
    if (this.asset.wave) {
      facts.push(...this.waveFacts(picture));
    } else if (this.asset.sequence) {
      facts.push(...this.sequenceFacts(picture));
    } else if (this.asset.toneBank) {
      facts.push(this.asset.toneBank.bankType ?? "unknown bank type");
    } else if (this.asset.type === "userAsset" || this.asset.type === "unknown") {
      facts.push(`parameters ${this.asset.parameters.join(" ")}`);
    }
    return facts.map((fact) => (fact instanceof Node ? fact : element("li", { text: fact })));
  }

  waveFacts(picture) {
    const { wave } = this.asset;
    const width = wave.encoding === "adpcm" ? "ADPCM" : `${wave.bits} bits`;
    const facts = [timeText(wave.seconds), `${numberText(wave.sampleRate)} Hz`, width];
    if (picture.peaks) {
      facts.push(`peak ${decibelText(picture.peak)}`, `RMS ${decibelText(picture.rms)}`);
    }
    if (picture.clipped) {
      facts.push(warning(`${countText(picture.clipped, "sample")} at the limit`));
    }
    if (wave.randomPitchAmount !== 0) {
      facts.push(`random pitch ${wave.randomPitchAmount}`);
    }
    if (wave.loop) {
      const { start, end } = wave.loop;
      const points = `loop ${numberText(start)}–${numberText(end)}`;
      const isBroken = start >= end || end > (wave.samples ?? Infinity); // null: it isn't known
      facts.push(isBroken ? warning(`broken ${points}`) : points);
    }
    return [...facts, ...this.qualityFacts()];
  }

  qualityFacts() {
    const quality = qualityOf(this.asset);
    if (!quality) {
      return [];
    }
    const { snr, worstError, worstSample, clipped } = quality;
    const withoutRatio = worstError === 0 ? "no error" : "its source is silent";
    const facts = [
      snr === null ? withoutRatio : `${snr.toFixed(2)} dB against its source`,
      `worst error ${numberText(worstError)} at sample ${numberText(worstSample)}`,
    ];
    return clipped > 0 ? [...facts, `${numberText(clipped)} clipped by compression`] : facts;
  }

  sequenceFacts({ sequence: picture }) {
    const { sequence } = this.asset;
    const facts = [timeText(sequence.seconds)];
    facts.push(sequence.bpm === null ? "no tempo" : `${sequence.bpm} bpm`);
    if (sequence.polyphony === null) {
      facts.push(warning("breaks off"));
    } else {
      facts.push(countText(sequence.polyphony, "voice"), countText(sequence.events, "event"));
    }
    if (picture && !picture.hasAllNotes) {
      facts.push("only its first notes are shown");
    }
    const { division, volume, gmMode, loop } = sequence;
    return [
      ...facts,
      `division ${division}`,
      `volume ${volume}`,
      `GM mode ${gmMode}`,
      `loop ${loop}`,
    ];
  }

  controls(picture) {
    const controls = element("div", { className: "controls" });
    if (this.canSound(picture)) {
      this.playButton = button("Play", () => this.toggle(false), { className: "play" });
      controls.append(this.playButton);
    }
    if (hasLoop(this.asset) && this.playButton) {
      this.loopButton = button("Loop", () => this.toggle(true), { className: "loop" });
      controls.append(this.loopButton);
    }
    if (!picture.peaks && !this.playButton) {
      return "";
    }
    controls.append(element("p", { className: "note", text: this.note(picture) }));
    if (picture.peaks) {
      controls.append(this.zoomButtons());
    }
    return controls;
  }

  zoomButtons() {
    const zoom = (text, label, factor) =>
      button(text, () => this.view.zoom(factor), { "aria-label": label, title: label });
    return element(
      "div",
      { className: "zoom" },
      zoom("−", "Zoom out", 2),
      zoom("+", "Zoom in", 0.5),
      zoom("↔", "Whole wave", Infinity),
    );
  }

  note(picture) {
    if (this.asset.type === "sequence" && this.playButton) {
      return "A preview with plain oscillators, not the bank’s own sounds";
    }
    if (picture.peaks && !picture.audio) {
      return "Not in this page, which has an audio limit";
    }
    return picture.peaks && !this.playButton ? "Can’t be played without a sample rate" : "";
  }

  canSound(picture) {
    const { wave } = this.asset;
    return picture.audio ? wave.sampleRate > 0 : picture.sequence?.notes.length > 0;
  }

  soundOf(isLooping) {
    const { wave } = this.asset;
    return wave
      ? new WaveSound(this.view.samples(), wave.sampleRate, isLooping ? wave.loop : null)
      : new SequencePreview(this.view);
  }

  // Plays the asset, or stops it if it already plays that way.
  toggle(isLooping) {
    const isSame = isPlaying(this) && this.isLooping === isLooping;
    stop();
    if (this.playButton && !isSame) {
      this.isLooping = isLooping;
      play(this, this.soundOf(isLooping));
    }
  }

  toggleAny() {
    if (isPlaying(this)) {
      stop();
    } else {
      this.toggle(false);
    }
  }

  showPlaying(position) {
    const isOn = position !== null;
    this.element.classList.toggle("playing", isOn);
    this.playButton?.setAttribute("aria-pressed", String(isOn && !this.isLooping));
    this.loopButton?.setAttribute("aria-pressed", String(isOn && this.isLooping));
    this.view?.showPosition(position);
  }

  get seconds() {
    return secondsOf(this.asset) ?? -1;
  }
}

function warning(text) {
  return element("li", { className: "warning", text });
}

// The first bytes of an asset that can't be drawn, as numbers and as text.
function firstBytes(asset, picture) {
  const bytes = [...bytesFrom(picture.firstBytes)];
  const lines = [];
  for (let i = 0; i < bytes.length; i += 16) {
    const row = bytes.slice(i, i + 16);
    const numbers = row.map((byte) => byte.toString(16).padStart(2, "0")).join(" ");
    const text = row.map((byte) => (byte > 31 && byte < 127 ? String.fromCharCode(byte) : "·"));
    lines.push(`${i.toString(16).padStart(4, "0")}  ${numbers.padEnd(47)}  ${text.join("")}`);
  }
  if (bytes.length < asset.bytes) {
    lines.push("…");
  }
  return element("pre", {
    className: "bytes",
    text: lines.join("\n") || "empty",
    tabindex: "0",
    "aria-label": "First bytes",
  });
}
