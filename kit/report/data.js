// The data of the page: documents in elements that the browser neither runs nor shows.

function readDocument(id) {
  return JSON.parse(document.getElementById(id).textContent);
}

export const report = readDocument("report");

// What is shown of an asset. Parsed when it is drawn, and not kept: a bank can have thousands.
export function pictureOf(asset) {
  return readDocument(`asset-${asset.id}`);
}

export function bytesFrom(base64) {
  const characters = atob(base64);
  const bytes = new Uint8Array(characters.length);
  for (let i = 0; i < bytes.length; ++i) {
    bytes[i] = characters.charCodeAt(i);
  }
  return bytes;
}

// Returns the outlines of each zoom: pairs of the lowest and the highest sample of each bucket.
export function outlinesFrom(encoded) {
  return encoded.map((base64) => {
    const view = new DataView(bytesFrom(base64).buffer);
    return Int16Array.from({ length: view.byteLength / 2 }, (_, i) => view.getInt16(2 * i, true));
  });
}

export function nameOf(asset) {
  return asset.define ?? String(asset.id);
}

// Each asset's link has its name, or its id if an asset before it has the same name.
const linkedNames = new Set();
const links = report.list.assets.map((asset) => {
  const name = linkedNames.has(nameOf(asset)) ? String(asset.id) : nameOf(asset);
  linkedNames.add(name);
  return `#${encodeURIComponent(name)}`;
});

export function linkOf(asset) {
  return links[asset.id];
}

const scriptWaves = new Map(report.quality?.waves.map((wave) => [wave.id, wave]));
const qualities = new Map(report.judged.map(([id, waveId]) => [id, scriptWaves.get(waveId)]));

// Returns what compression does to a wave, if a script says so.
export function qualityOf(asset) {
  return qualities.get(asset.id);
}

export function hasLoop({ wave }) {
  return Boolean(wave?.loop && wave.loop.start < wave.loop.end && wave.loop.end <= wave.samples);
}

export function secondsOf(asset) {
  return asset.wave?.seconds ?? asset.sequence?.seconds ?? null;
}

export const kinds = [
  { type: "wave", name: "Waves" },
  { type: "sequence", name: "Sequences" },
  { type: "toneBank", name: "Tone banks" },
  { type: "fxProgramBank", name: "FX program banks" },
  { type: "fxOutputBank", name: "FX output banks" },
  { type: "userAsset", name: "User assets" },
  { type: "unknown", name: "Unknown" },
];

// Decodes a wave to numbers from -1 to 1, as the game's side of a bank does.
export function samplesOf(asset, picture) {
  const bytes = bytesFrom(picture.audio);
  const view = new DataView(bytes.buffer);
  switch (asset.wave.bits) {
    case 4:
      return decodeAdpcm(bytes);
    case 8:
      return Float32Array.from(bytes, (_, i) => view.getInt8(i) / 128);
    default:
      return Float32Array.from(
        { length: asset.wave.samples },
        (_, i) => view.getInt16(2 * i, true) / 32768,
      );
  }
}

const stepFactors = [230, 230, 230, 230, 307, 409, 512, 614];

// Each byte has two codes, the low half first. A code is a sign and a magnitude in steps.
function decodeAdpcm(bytes) {
  const samples = new Float32Array(2 * bytes.length);
  let predictor = 0;
  let step = 127;
  for (let i = 0; i < samples.length; ++i) {
    const code = (bytes[i >> 1] >> (4 * (i & 1))) & 15;
    const magnitude = code & 7;
    const distance = (step * (2 * magnitude + 1)) >> 3;
    predictor = Math.max(-32768, Math.min(32767, predictor + (code & 8 ? -distance : distance)));
    step = Math.max(127, Math.min(24576, (step * stepFactors[magnitude]) >> 8));
    samples[i] = predictor / 32768;
  }
  return samples;
}
