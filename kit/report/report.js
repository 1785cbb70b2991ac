// The list of assets: searching, sorting, choosing and drawing what is near the view.
import { kinds, qualityOf, report } from "./data.js";
import { Card } from "./card.js";
import { shownCount, showOverview } from "./overview.js";
import { isPlaying, stop } from "./sound.js";
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
let addressed = null; // the card that the page's address names

function matches(card) {
  const words = search.value.toLowerCase().split(/\s+/);
  const text = `${card.name} ${card.asset.id}`.toLowerCase();
  const isOfType = shownType === null || shownType === card.asset.type;
  return isOfType && words.every((word) => text.includes(word));
}

function showList() {
  const { compare } = orders[sort.selectedIndex];
  const ordered = [...cards].sort((a, b) => compare(a, b) || a.asset.id - b.asset.id);
  shown = isPrinting() ? ordered : ordered.filter(matches);
  container.replaceChildren(...shown.map((card) => card.element));
  if (!shown.some(isPlaying)) {
    stop(); // a hidden card has no button for it
  }
  document.getElementById("count").textContent = shownCount(shown.length, cards.length);
}

function showType(type) {
  shownType = type;
  typeChips.forEach((chip, of) => chip.setAttribute("aria-pressed", String(of === type)));
  showList();
}

// Measures all before it draws the first, so that the browser lays out the page once.
function draw(filled) {
  filled.forEach((card) => card.measure());
  filled.forEach((card) => card.view?.draw());
}

function fill(wanted) {
  const empty = wanted.filter(({ isFilled }) => !isFilled);
  empty.forEach((card) => card.fill());
  draw(empty);
}

// Draws the cards that come near the view, and empties those that leave it.
const observer = new IntersectionObserver(
  (entries) => {
    const cardsOf = (isNear) =>
      entries
        .filter((entry) => entry.isIntersecting === isNear)
        .map(({ target }) => cardOf.get(target));
    if (!isPrinting()) {
      cardsOf(false).forEach((card) => card.empty());
    }
    fill(cardsOf(true));
  },
  { rootMargin: "600px 0px" },
);

function mark(card) {
  chosen?.element.removeAttribute("aria-current");
  chosen = card;
  card.element.setAttribute("aria-current", "true");
}

function choose(card, { scroll = "nearest" } = {}) {
  mark(card);
  card.element.focus({ preventScroll: true });
  fill([card]);
  card.element.scrollIntoView({ block: scroll });
}

function chooseNext(step) {
  const index = shown.indexOf(chosen);
  const next = index < 0 ? 0 : Math.max(0, Math.min(shown.length - 1, index + step));
  if (shown[next]) {
    choose(shown[next]);
  }
}

// Lets the page's address name the chosen asset.
function showAddress() {
  if (chosen !== addressed) {
    addressed = chosen;
    history.replaceState(null, "", chosen.link);
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
  const link = `#${encodeURIComponent(name)}`;
  const card = cards.find((candidate) => candidate.link === link);
  if (!card) {
    return;
  }
  if (!shown.includes(card)) {
    search.value = "";
    showType(null);
  }
  choose(card, { scroll: "start" });
  showAddress();
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
  const isControl = target.closest("button, select") && !isMoving && key !== "/";
  const isScrolling = target.closest("ul[tabindex]") && isMoving;
  if (target === search && key === "Escape") {
    search.value = "";
    showList();
  }
  const isForSort = target === sort && key !== "/";
  const hasModifier = event.ctrlKey || event.metaKey || event.altKey;
  const isForOther = isTyping || isControl || isScrolling || isForSort;
  if (!hasModifier && !isForOther && keys[key]) {
    event.preventDefault();
    keys[key]();
  }
  // Browsers allow only so many changes of the address: not each of a key that is held down.
  if (!event.repeat) {
    showAddress();
  }
}

// The wheel zooms the chosen asset. Over others it scrolls the page, unless Ctrl is held.
function takeWheel(event) {
  const card = cardOf.get(event.target.closest("article"));
  const frame = event.target.closest(".frame");
  if (frame && card?.view?.zoom && (card === chosen || event.ctrlKey)) {
    event.preventDefault();
    const { left, width } = frame.getBoundingClientRect();
    if (Math.abs(event.deltaX) > Math.abs(event.deltaY)) {
      card.view.move(event.deltaX);
    } else {
      const notches = Math.max(-3, Math.min(3, event.deltaY / 100));
      card.view.zoom(1.25 ** notches, (event.clientX - left) / width);
    }
  }
}

function drawAgain() {
  draw(shown.filter(({ isFilled }) => isFilled));
}

function isPrinting() {
  return document.documentElement.classList.contains("printing");
}

// Paper is light and has no view: every asset is drawn, in the light colours.
function setPrinting(isOn) {
  document.documentElement.classList.toggle("printing", isOn);
  showList();
  if (isOn) {
    fill(cards);
  } else {
    cards.forEach((card) => observer.unobserve(card.element));
    cards.forEach((card) => observer.observe(card.element));
  }
  drawAgain();
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
    if (card && event.target.closest("button")) {
      mark(card); // the focus stays where it is
    } else if (card && !event.target.closest("a")) {
      choose(card);
    }
    showAddress();
  });
  document.addEventListener("keydown", takeKey);
  document.addEventListener("keyup", showAddress);
  container.addEventListener("wheel", takeWheel, { passive: false });
  addEventListener("hashchange", followLink);
  // A link to what the address names already doesn't change it.
  document.addEventListener("click", ({ target }) => {
    if (target.closest("a")?.hash === location.hash) {
      followLink();
    }
  });
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
