// What everything on the page is made of: elements, texts of numbers, and colours.

// Makes an element. Texts become text, never markup.
export function element(tag, { className, text, ...attributes } = {}, ...children) {
  const result = document.createElement(tag);
  if (className) {
    result.className = className;
  }
  if (text !== undefined) {
    result.textContent = text;
  }
  for (const [name, value] of Object.entries(attributes)) {
    result.setAttribute(name, value);
  }
  result.append(...children.filter(Boolean));
  return result;
}

export function button(label, action, attributes = {}) {
  const result = element("button", { type: "button", text: label, ...attributes });
  result.addEventListener("click", action);
  return result;
}

const numberFormat = new Intl.NumberFormat("en-US");

export function numberText(number) {
  return numberFormat.format(number).replace("-", "−");
}

export function sizeText(bytes) {
  if (bytes < 1024) {
    return `${bytes} B`;
  }
  const [size, unit] = bytes < 1024 * 1024 ? [bytes / 1024, "KiB"] : [bytes / 1024 / 1024, "MiB"];
  return `${size.toFixed(size < 10 ? 1 : 0)} ${unit}`;
}

export function timeText(seconds) {
  if (seconds === null) {
    return "length unknown";
  }
  const milliseconds = Math.round(1000 * seconds);
  if (milliseconds < 1000) {
    return `${milliseconds} ms`;
  }
  const tenths = Math.round(10 * seconds);
  if (tenths < 600) {
    return `${seconds.toFixed(tenths < 100 ? 2 : 1)} s`;
  }
  const rest = ((tenths % 600) / 10).toFixed(1);
  return `${Math.floor(tenths / 600)}:${rest.padStart(4, "0")} min`;
}

export function countText(count, noun) {
  return `${numberText(count)} ${noun}${count === 1 ? "" : "s"}`;
}

export function decibelText(ratio) {
  const text = (20 * Math.log10(ratio)).toFixed(1).replace("-Infinity", "−∞");
  return `${text.replace(/^-0\.0$/, "0.0").replace("-", "−")} dB`;
}

// Returns a colour of the style by its name.
export function colour(name) {
  return getComputedStyle(document.documentElement).getPropertyValue(`--${name}`).trim();
}

// Fits a canvas to its place and returns what draws on it, in CSS pixels.
export function prepareCanvas(canvas, width, height) {
  const scale = Math.min(window.devicePixelRatio || 1, 2);
  canvas.width = Math.max(1, Math.round(width * scale));
  canvas.height = Math.max(1, Math.round(height * scale));
  const context = canvas.getContext("2d");
  context.setTransform(scale, 0, 0, scale, 0, 0);
  context.clearRect(0, 0, width, height);
  return context;
}
