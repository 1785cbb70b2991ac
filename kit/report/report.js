// The list of assets: searching, sorting, choosing and drawing what is near the view.
import { kinds, qualityOf, report } from "./data.js";
import { Card } from "./card.js";
import { shownCount, showOverview } from "./overview.js";
import { button, element } from "./theme.js";

const orders = [
  { name: "By id", compare: (a, b) => a.asset.id - b.asset.id },
  { name: "By name", compare: (a, b) => a.name.localeCompare(b.name, "en") },
  { name: "Largest first", compare: (a, b) => b.asset.bytes - a.asset.bytes },
  { name: "Longest first", compare: (a, b) => b.seconds - a.seconds },
];
if (report.quality) {
  const decibels = ({ asset }) => qualityOf(asset)?.snr ?? Infinity;
  const compare = (a, b) => (decibels(a) < decibels(b) ? -1 : decibels(a) > decibels(b) ? 1 : 0);
  orders.push({ name: "Worst quality first", compare });
}

const search = document.getElementById("search");
const sort = document.getElementById("sort");
const container = document.getElementById("assets");
const cards = report.list.assets.map((asset) => new Card(asset));
const cardOf = new Map(cards.map((card) => [card.element, card]));
const typeChips = new Map();
let shownType = null; // null for all
let shown = cards;
let chosen = null;

function matches(card) {
  const words = search.value.toLowerCase().split(/\s+/);
  const text = `${card.name} ${card.asset.id}`.toLowerCase();
  const isOfType = shownType === null || shownType === card.asset.type;
  return isOfType && words.every((word) => text.includes(word));
}

function showList() {
  const { compare } = orders[sort.selectedIndex];
  const ordered = [...cards].sort((a, b) => compare(a, b) || a.asset.id - b.asset.id);
  shown = ordered.filter(matches);
  container.replaceChildren(...shown.map((card) => card.element));
  document.getElementById("count").textContent = shownCount(shown.length, cards.length);
}

function showType(type) {
  shownType = type;
  typeChips.forEach((chip, of) => chip.setAttribute("aria-pressed", String(of === type)));
  showList();
}

// Draws the cards that come near the view, and empties those that leave it.
const observer = new IntersectionObserver(
  (entries) => {
    for (const { target, isIntersecting } of entries) {
      const card = cardOf.get(target);
      if (isIntersecting) {
        card.fill();
      } else if (!isPrinting()) {
        card.empty();
      }
    }
  },
  { rootMargin: "600px 0px" },
);

function choose(card, { scroll = "nearest" } = {}) {
  chosen?.element.removeAttribute("aria-current");
  chosen = card;
  card.element.setAttribute("aria-current", "true");
  card.element.focus({ preventScroll: true });
  card.fill();
  card.element.scrollIntoView({ block: scroll });
  history.replaceState(null, "", card.link);
}

function chooseNext(step) {
  const index = shown.indexOf(chosen);
  const next = index < 0 ? 0 : Math.max(0, Math.min(shown.length - 1, index + step));
  if (shown[next]) {
    choose(shown[next]);
  }
}

// Chooses the asset that the page's address names.
function followLink() {
  let name = location.hash.slice(1);
  try {
    name = decodeURIComponent(name);
  } catch {
    // Not encoded: taken as it is.
  }
  const card = name === "" ? null : cards.find((candidate) => candidate.name === name);
  if (!card) {
    return;
  }
  if (!shown.includes(card)) {
    search.value = "";
    showType(null);
  }
  choose(card, { scroll: "start" });
  // The cards above have been drawn by then and may have moved this one.
  requestAnimationFrame(() =>
    requestAnimationFrame(() => card.element.scrollIntoView({ block: "start" })),
  );
}

const keys = {
  ArrowDown: () => chooseNext(1),
  ArrowUp: () => chooseNext(-1),
  " ": () => chosen?.toggleAny(),
  "/": () => search.focus(),
  "+": () => chosen?.view?.zoom?.(0.5),
  "-": () => chosen?.view?.zoom?.(2),
  0: () => chosen?.view?.zoom?.(Infinity),
};

function takeKey(event) {
  const { target, key } = event;
  const isMoving = key === "ArrowDown" || key === "ArrowUp";
  const isTyping = target === search && !isMoving;
  const isControl = target.closest("button, a, select") && !isMoving && key !== "/";
  if (target === search && key === "Escape") {
    search.value = "";
    showList();
  }
  const isForSort = target === sort && key !== "/";
  const hasModifier = event.ctrlKey || event.metaKey || event.altKey;
  if (!hasModifier && !isTyping && !isControl && !isForSort && keys[key]) {
    event.preventDefault();
    keys[key]();
  }
}

// The wheel zooms the chosen asset. Over others it scrolls the page, unless Ctrl is held.
function takeWheel(event) {
  const card = cardOf.get(event.target.closest("article"));
  const frame = event.target.closest(".frame");
  if (frame && card?.view?.zoom && (card === chosen || event.ctrlKey)) {
    event.preventDefault();
    const { left, width } = frame.getBoundingClientRect();
    card.view.zoom(event.deltaY > 0 ? 1.25 : 0.8, (event.clientX - left) / width);
  }
}

function drawAgain() {
  for (const card of shown.filter(({ isFilled }) => isFilled)) {
    card.view?.draw();
  }
}

function isPrinting() {
  return document.documentElement.classList.contains("printing");
}

// Paper is light and has no view: everything is drawn, in the light colours.
function setPrinting(isOn) {
  document.documentElement.classList.toggle("printing", isOn);
  for (const card of shown) {
    if (isOn) {
      card.fill();
    }
  }
  drawAgain();
  if (!isOn) {
    cards.forEach((card) => observer.unobserve(card.element));
    cards.forEach((card) => observer.observe(card.element));
  }
}

function addControls() {
  sort.append(...orders.map(({ name }) => element("option", { text: name })));
  const present = kinds.filter(({ type }) => cards.some(({ asset }) => asset.type === type));
  const chips = [{ type: null, name: "All" }, ...present].map(({ type, name }) => {
    const chip = button(name, () => showType(type), { "aria-pressed": String(type === null) });
    typeChips.set(type, chip);
    return chip;
  });
  document.getElementById("kinds").append(...chips);
}

function addListeners() {
  search.addEventListener("input", showList);
  sort.addEventListener("change", showList);
  container.addEventListener("click", (event) => {
    const card = cardOf.get(event.target.closest("article"));
    if (card && !event.target.closest("a, button")) {
      choose(card);
    }
  });
  document.addEventListener("keydown", takeKey);
  container.addEventListener("wheel", takeWheel, { passive: false });
  addEventListener("hashchange", followLink);
  addEventListener("resize", drawAgain);
  addEventListener("beforeprint", () => setPrinting(true));
  addEventListener("afterprint", () => setPrinting(false));
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", drawAgain);
}

showOverview();
addControls();
showList();
addListeners();
cards.forEach((card) => observer.observe(card.element));
followLink();
