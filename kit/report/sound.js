// Plays one sound at a time.

let context = null;
let current = null;

// Browsers let a page sound only after its user has done something.
function audioContext() {
  context ??= new AudioContext();
  context.resume();
  return context;
}

// Starts `sound`. Its `start(context, ended)` returns a voice with `stop()` and `position()`.
// `owner` gets the position again and again through `showPlaying(position)`, and null at the end.
export function play(owner, sound) {
  stop();
  const playing = { owner };
  current = playing;
  const ended = () => {
    if (current === playing) {
      stop();
    }
  };
  playing.voice = sound.start(audioContext(), ended);
  follow(playing);
}

export function stop() {
  const stopped = current;
  current = null;
  stopped?.voice?.stop();
  stopped?.owner.showPlaying(null);
}

export function isPlaying(owner) {
  return current?.owner === owner;
}

function follow(playing) {
  if (current === playing) {
    playing.owner.showPlaying(playing.voice.position());
    requestAnimationFrame(() => follow(playing));
  }
}

// What every browser takes for the rate of a buffer. Other rates are played faster or slower.
const lowestRate = 8000;
const highestRate = 96000;

// A wave from its samples. `loop` is null or the first sample and the one after the last.
export class WaveSound {
  constructor(samples, rate, loop) {
    this.samples = samples;
    this.rate = rate;
    this.loop = loop;
  }

  start(context, ended) {
    const rate = Math.max(lowestRate, Math.min(highestRate, this.rate));
    const buffer = context.createBuffer(1, this.samples.length, rate);
    buffer.copyToChannel(this.samples, 0);
    const source = new AudioBufferSourceNode(context, {
      buffer,
      playbackRate: this.rate / rate,
      loop: this.loop !== null,
      loopStart: (this.loop?.start ?? 0) / rate,
      loopEnd: (this.loop?.end ?? 0) / rate,
    });
    source.connect(context.destination);
    source.onended = ended;
    const begin = context.currentTime;
    source.start();
    return {
      stop: () => source.stop(),
      position: () => this.place((context.currentTime - begin) * this.rate),
    };
  }

  // Returns the sample that sounds after `played` samples.
  place(played) {
    if (this.loop === null || played < this.loop.end) {
      return Math.min(played, this.samples.length);
    }
    const { start, end } = this.loop;
    return start + ((played - start) % (end - start));
  }
}
