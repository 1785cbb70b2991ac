// A preview of a sequence with plain oscillators: its notes, not its sounds.

const ahead = 0.4; // seconds of notes that are handed to the audio clock early
const drumChannel = 9;
const loudness = 0.12;
const mostVoices = 96; // notes beyond them are left out

export class SequencePreview {
  constructor(view) {
    this.view = view;
    this.seconds = view.secondsAt(view.ticks);
    this.voices = 0;
  }

  start(context, ended) {
    const master = new GainNode(context, { gain: 1 });
    master.connect(context.destination);
    const begin = context.currentTime + 0.05;
    let next = 0;
    const { notes } = this.view;
    const schedule = () => {
      const time = context.currentTime - begin;
      for (; next < notes.length && this.view.secondsAt(notes[next].start) < time + ahead; ++next) {
        this.playNote(context, master, notes[next], begin);
      }
      if (time > this.seconds) {
        ended();
      }
    };
    schedule();
    const timer = setInterval(schedule, 100);
    return {
      stop: () => {
        clearInterval(timer);
        master.disconnect();
      },
      position: () => Math.max(0, context.currentTime - begin),
    };
  }

  playNote(context, master, { start, length, number, velocity, channel }, begin) {
    if (this.voices === mostVoices) {
      return;
    }
    const isDrum = channel === drumChannel;
    const from = begin + this.view.secondsAt(start);
    const until = isDrum
      ? from + 0.05
      : Math.max(from + 0.04, begin + this.view.secondsAt(start + length));
    const oscillator = new OscillatorNode(context, {
      type: isDrum ? "square" : "triangle",
      frequency: 440 * 2 ** ((number - 69) / 12),
    });
    const gain = new GainNode(context, { gain: 0 });
    const level = (loudness * velocity) / 127;
    gain.gain.setValueAtTime(0, from);
    gain.gain.linearRampToValueAtTime(level, from + 0.01);
    gain.gain.setValueAtTime(level, Math.max(from + 0.01, until - 0.02));
    gain.gain.linearRampToValueAtTime(0, until + 0.03);
    ++this.voices;
    oscillator.onended = () => --this.voices;
    oscillator.connect(gain).connect(master);
    oscillator.start(from);
    oscillator.stop(until + 0.04);
  }
}
