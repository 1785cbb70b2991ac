// What the page says of the bank as a whole.
import { kinds, linkOf, nameOf, report, secondsOf } from "./data.js";
import { countText, element, numberText, sizeText, timeText } from "./theme.js";

const { list } = report;

export function showOverview() {
  const name = list.bank.split(/[/\\]/).pop();
  document.title = name;
  document.getElementById("bank-name").textContent = name;
  const seconds = list.assets.reduce((sum, asset) => sum + (secondsOf(asset) ?? 0), 0);
  const facts = [
    countText(list.assets.length, "asset"),
    sizeText(list.bytes),
    timeText(seconds),
    `data ${numberText(list.dataBytes)} and header ${numberText(list.headerBytes)} bytes`,
  ];
  document
    .getElementById("bank-facts")
    .replaceChildren(...facts.map((text) => element("span", { text })));
  showSizes();
  const panels = [verifyPanel(), report.check && checkPanel(), duplicates(), largest()];
  document.getElementById("panels").replaceChildren(...panels.filter(Boolean));
}

// A bar of the bank's bytes by kind; the table and the padding are its last part.
function showSizes() {
  const parts = kinds.map(({ type, name }) => {
    const assets = list.assets.filter((asset) => asset.type === type);
    return { type, name, count: assets.length, bytes: sum(assets) };
  });
  const rest = list.bytes - sum(list.assets);
  parts.push({ type: "rest", name: "Table and padding", count: 1, bytes: rest });
  const shown = parts.filter(({ count }) => count > 0);
  const bar = document.getElementById("size-bar");
  bar.setAttribute(
    "aria-label",
    shown.map(({ name, bytes }) => `${name}: ${sizeText(bytes)}`).join(", "),
  );
  bar.replaceChildren(
    ...shown.map(({ type, bytes }) => {
      const part = element("span", { className: `part ${type}` });
      part.style.flexGrow = String(bytes / list.bytes);
      return part;
    }),
  );
  document
    .getElementById("size-legend")
    .replaceChildren(
      ...shown.map(({ type, name, bytes }) =>
        element(
          "li",
          {},
          element("span", { className: `dot ${type}`, "aria-hidden": "true" }),
          element("span", { text: name }),
          element("strong", { text: sizeText(bytes) }),
          element("span", { className: "share", text: share(bytes) }),
        ),
      ),
    );
}

function sum(assets) {
  return assets.reduce((bytes, asset) => bytes + asset.bytes, 0);
}

function share(bytes) {
  const percent = (100 * bytes) / list.bytes;
  return percent > 0 && percent < 1 ? "< 1 %" : `${Math.round(percent)} %`;
}

function findingsPanel(title, state, summary, rows) {
  return element(
    "section",
    { className: `panel findings ${state}` },
    element("h2", { text: title }),
    element("p", { className: "summary", text: summary }),
    rows.length > 0 && element("ul", { tabindex: "0", "aria-label": title }, ...rows),
  );
}

function row(className, message, code, place, hint) {
  return element(
    "li",
    { className },
    element("span", { className: "message", text: message }),
    element("code", { text: code }),
    place && element("span", { className: "place" }, place),
    hint && element("span", { className: "hint", text: hint }),
  );
}

function verifyPanel() {
  const { ok, findings } = report.verify;
  const rows = findings.map(({ code, id, message }) =>
    row("bad", message, code, list.assets[id] && assetLink(list.assets[id])),
  );
  const unchecked = report.hasHeader ? "" : " There is no header to check.";
  const summary = ok ? "Whole: nothing is wrong." : `${countText(findings.length, "finding")}.`;
  return findingsPanel("Bank", ok ? "good" : "bad", summary + unchecked, rows);
}

function checkPanel() {
  const { errors, warnings, diagnostics } = report.check;
  const isError = ({ severity }) => Number(severity === "error");
  const errorsFirst = [...diagnostics].sort((a, b) => isError(b) - isError(a));
  const rows = errorsFirst.map(({ severity, message, code, file, line, column, hint }) =>
    row(severity === "error" ? "bad" : "warning", message, code, `${file}:${line}:${column}`, hint),
  );
  const state = errors > 0 ? "bad" : warnings > 0 ? "warning" : "good";
  const found = `${countText(errors, "error")}, ${countText(warnings, "warning")}.`;
  const summary = diagnostics.length > 0 ? found : "Nothing is wrong.";
  const packs = report.packs ? "" : " It can’t be packed, so the bank isn’t compared with it.";
  return findingsPanel("Script", state, summary + packs, rows);
}

function assetLink(asset) {
  return element("a", { text: nameOf(asset), href: linkOf(asset) });
}

function largest() {
  const count = 10;
  const assets = [...list.assets].sort((a, b) => b.bytes - a.bytes).slice(0, count);
  if (assets.length === 0) {
    return null;
  }
  const rows = assets.map((asset) => {
    const bar = element("span", { className: `bar ${asset.type}` });
    bar.style.width = `${(100 * asset.bytes) / Math.max(1, assets[0].bytes)}%`;
    const size = element("span", { className: "size", text: sizeText(asset.bytes) });
    return element("li", {}, assetLink(asset), size, bar);
  });
  const title = assets.length < list.assets.length ? `The ${count} largest` : "By size";
  return element(
    "section",
    { className: "panel" },
    element("h2", { text: title }),
    element("ol", { className: "largest" }, ...rows),
  );
}

function duplicates() {
  const groups = report.duplicates;
  const wasted = groups.reduce((all, ids) => all + (ids.length - 1) * list.assets[ids[0]].bytes, 0);
  const summary =
    groups.length === 0
      ? "No two assets have the same bytes."
      : `${sizeText(wasted)} are there more than once.`;
  const rows = groups.map((ids) => {
    const size = element("span", { className: "size", text: sizeText(list.assets[ids[0]].bytes) });
    return element("li", {}, ...ids.map((id) => assetLink(list.assets[id])), size);
  });
  return element(
    "section",
    { className: "panel" },
    element("h2", { text: "Duplicates" }),
    element("p", { className: "summary", text: summary }),
    rows.length > 0 &&
      element(
        "ul",
        { className: "duplicates", tabindex: "0", "aria-label": "Duplicates" },
        ...rows,
      ),
  );
}

export function shownCount(shown, all) {
  return shown === all
    ? countText(all, "asset")
    : `${numberText(shown)} of ${countText(all, "asset")}`;
}
