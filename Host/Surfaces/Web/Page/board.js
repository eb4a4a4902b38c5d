// The page: keeps the cards beside what the host says, and does what a person asks.

import { blob, get, listen, post } from './host.js';
import { first } from './start.js';
import { onView, setZone, view } from './view.js';
import { $, all, attempt, make, place, say, toast } from './dom.js';
import { flow, freeCell, inReadingOrder, makeRoom, sizeOf, spanOf } from './grid.js';
import { Card } from './card.js';
import * as gallery from './gallery.js';
import * as keys from './keys.js';
import * as sheet from './sheet.js';
import { moveByKeys, startDrag } from './drag.js';

const kPitch = { x: 194, y: 212 };
const kLine = 52;  // below a card on a narrow page
const canvas = $('#canvas');
const grid = $('#grid');
const menu = $('#menu');
const target = make('li', { className: 'target', ariaHidden: 'true' });
const isNarrow = () => innerWidth < 720;

let state = { placements: [], gallery: [] };
let isOpen = false;
const removed = [];

const board = {
  cards: new Map(),
  placed: [],
  get zone() { return state.zone; },
  offerOf: (kind) => state.gallery.find((offer) => offer.kind === kind),

  // ---- where cards stand

  get zoom() { return isNarrow() ? (innerWidth - 32) / 364 : 1; },
  get columns() { return isNarrow() ? 2 : Math.max(1, Math.floor((canvas.clientWidth - 40) / kPitch.x)); },

  /** In pixels of the grid. On a narrow page the lines below keep their height, so rows follow each other as they are filled. */
  boxOf({ column, row, family }) {
    const { zoom } = board;
    const [w, h] = sizeOf(family).map((side) => side * zoom);
    const rows = {};
    for (const above of board.placed) if (above.row < row) rows[above.row] = sizeOf(above.family)[1] * zoom + kLine;
    const y = isNarrow() ? Object.values(rows).reduce((sum, height) => sum + height, 0) : row * kPitch.y;
    return { x: column * kPitch.x * zoom, y, w, h };
  },

  clamp: ({ column, row }, family) => ({
    column: Math.max(0, Math.min(column, board.columns - spanOf(family)[0])),
    row: Math.max(0, row),
  }),

  /** The cell under the pointer; none outside the canvas. */
  cellAt({ clientX, clientY }, family) {
    const { left, right, top, bottom } = canvas.getBoundingClientRect();
    if (clientX < left || clientX > right || clientY < top || clientY > bottom) return undefined;
    const origin = grid.getBoundingClientRect();
    const [x, y] = [clientX - origin.left, clientY - origin.top];
    const rows = [...Array(100).keys()];
    const row = isNarrow() ? rows.findLast((one) => board.boxOf({ row: one, column: 0 }).y <= y) : Math.floor(y / kPitch.y);
    return board.clamp({ column: Math.floor(x / kPitch.x / board.zoom), row: row ?? 0 }, family);
  },

  /** A card that is held at the canvas's edge scrolls it. */
  scrollAt({ clientY }) {
    const { top, bottom } = canvas.getBoundingClientRect();
    canvas.scrollBy(0, clientY > bottom - 32 ? 16 : clientY < top + 32 ? -16 : 0);
  },

  /** Shows how all would stand if `item` went to a cell; without one, how they stand. */
  preview(item, cell) {
    const home = flow(state.placements, board.columns);
    board.placed = cell ? makeRoom(home, { ...item, ...cell }, board.columns) : home;
    target.remove();
    for (const card of board.cards.values()) card.element.classList.toggle('moving', card.id === item?.id);
    let bottom = 0;
    for (const placed of board.placed) {
      const box = board.boxOf(placed);
      board.cards.get(placed.id)?.place(box, board.zoom);
      bottom = Math.max(bottom, box.y + box.h + kLine);
    }
    grid.style.height = `${bottom}px`;
    if (!cell) return order();
    grid.append(target);
    return place(target, board.boxOf({ ...item, ...cell }));
  },

  // ---- what a person asks

  async move(id, cell) {
    const item = board.placed.find((one) => one.id === id);
    const moved = makeRoom(board.placed, { ...item, ...cell }, board.columns);
    const cells = moved.map(({ id: one, column, row }) => ({ id: one, column, row }));
    state.placements = moved;
    board.preview();
    say(`${board.cards.get(id).title}, column ${cell.column + 1}, row ${cell.row + 1}`);
    await attempt(() => post('move', { cells }));
    await load();
  },

  async add(kind, family, cell, configuration = {}) {
    const where = cell ?? freeCell(family, board.placed, board.columns);
    const answer = await attempt(() => post('add', { kind, family, configuration, ...where }));
    if (!answer) return;
    await load();
    if (cell) await board.move(answer.id, cell);
    showPanel('widgets');
    const card = board.cards.get(answer.id);
    card?.element.scrollIntoView({ block: 'nearest' });
    card?.focus();
    say(`${card?.title} added, column ${where.column + 1}, row ${where.row + 1}`);
  },

  async remove({ placement, title }) {
    const at = inReadingOrder(board.placed).findIndex(({ id }) => id === placement.id);
    if (!await attempt(() => post('remove', { id: placement.id }))) return;
    removed.push(placement);
    await load();
    const left = inReadingOrder(board.placed);
    (board.cards.get((left[at] ?? left.at(-1))?.id) ?? canvas).focus();
    toast(`${title} removed.`, 'Undo', board.undo);
  },

  undo() {
    const last = removed.pop();
    return last && board.add(last.kind, last.family, { column: last.column, row: last.row }, last.configuration);
  },

  async resize(card, family) {
    const { id, kind, configuration } = card.placement;
    if (!board.offerOf(kind)?.families.includes(family)) return say(`${card.title} has no such size.`);
    if (!await attempt(() => post('configure', { id, family, configuration }))) return undefined;
    await load();
    return board.move(id, board.clamp(board.placed.find((item) => item.id === id), family));
  },

  edit(card) {
    const offer = board.offerOf(card.placement.kind);
    if (offer) sheet.edit(card, offer, gallery.drawPreview);
  },

  async download(card, form) {
    const file = await attempt(() => blob(`widget/${card.id}.${form}`, view()));
    if (!file) return;
    const download = `${card.title} ${sheet.sizes[card.placement.family]}.${form}`;
    const link = make('a', { href: URL.createObjectURL(file), download });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  },

  openMenu(card, point) {
    const families = board.offerOf(card.placement.kind)?.families ?? [];
    menu.ariaLabel = `Options of ${card.title}`;
    for (const item of all('[data-family]', menu)) {
      item.hidden = families.length < 2 || !families.includes(item.dataset.family);
      item.ariaChecked = String(item.dataset.family === card.placement.family);
    }
    menu.onclick = ({ target: chosen }) => {
      const { do: action, family } = chosen.closest('button')?.dataset ?? {};
      menu.hidePopover();
      if (family) board.resize(card, family);
      else if (action === 'move') moveByKeys(board, card);
      else if (action === 'reload') card.reload();
      else if (action === 'png' || action === 'svg') board.download(card, action);
      else if (action) board[action](card);
    };
    card.more.focus();
    menu.showPopover();
    const box = card.more.getBoundingClientRect();
    const x = point?.clientX || box.right - menu.offsetWidth;
    const y = point?.clientY || box.bottom + 4;
    const within = (at, room) => Math.max(8, Math.min(at, room - 8));
    place(menu, { x: within(x, innerWidth - menu.offsetWidth), y: within(y, innerHeight - menu.offsetHeight) });
    $('button', menu).focus();
  },

  select(card) {
    for (const { element } of board.cards.values()) element.ariaCurrent = element === card?.element ? 'true' : null;
  },

  toggleHidden: () => attempt(async () => {
    await post('hide', { hidden: !state.hidden });
    await load();
    say(state.hidden ? 'Amounts are hidden everywhere.'
      : state.locked ? 'Amounts stay hidden: the session is locked.' : 'Amounts are shown.');
  }),

  toggleGallery() {
    if (isNarrow()) return showPanel('gallery');
    const closed = document.body.classList.toggle('plain');
    $('#showGallery').ariaExpanded = String(!closed);
    if (closed) $('#showGallery').focus();
    return board.preview();
  },

  search() {
    if (!$('#gallery').checkVisibility()) board.toggleGallery();
    $('#search').focus();
  },
};

/** The order of the document is that of reading, so that Tab and a screen reader follow the eye. */
function order() {
  const focused = document.activeElement;
  const elements = inReadingOrder(board.placed).map(({ id }) => board.cards.get(id)?.element).filter(Boolean);
  elements.forEach((element, i) => { if (grid.children[i] !== element) grid.insertBefore(element, grid.children[i]); });
  if (focused !== document.activeElement && grid.contains(focused)) focused.focus();
}

function addCard(placement) {
  const card = new Card(placement, board);
  board.cards.set(placement.id, card);
  grid.append(card.element);
  card.face.onpointerdown = (event) => {
    if (event.target.localName === 'button') return;
    const item = board.placed.find(({ id }) => id === card.id);
    startDrag(event, board, item, (cell) => board.move(card.id, cell));
  };
  card.more.onclick = () => board.openMenu(card);
  $('.under', card.element).onclick = ({ target: at }) => { if (!card.more.contains(at)) board.select(card); };
  card.element.oncontextmenu = (event) => { event.preventDefault(); board.openMenu(card, event); };
}

const refresh = async (card) => { await card.refresh(); showLamp(); };
const refreshAll = () => { for (const card of board.cards.values()) refresh(card); };

// ---- what the host says

const load = async () => take(await attempt(() => get('state')));

function take(next) {
  if (!next) return;
  const before = state;
  state = next;
  const isMasked = state.hidden || state.locked;
  $('#container').textContent = state.container;
  $('#hide').ariaPressed = String(isMasked);
  $('#hide use').setAttribute('href', state.locked ? '#i-lock' : isMasked ? '#i-eye-off' : '#i-eye');
  $('#hide span').textContent = state.locked ? 'Locked' : 'Hide amounts';
  $('#hide').title = state.locked ? 'The session counts as locked: amounts are hidden in any case.' : '';
  $('#control').hidden = !state.control;
  $('#control span').textContent = state.control?.name;
  const hasOffers = JSON.stringify(before.gallery) !== JSON.stringify(state.gallery);
  if (hasOffers) gallery.show(state.gallery, board);
  const asked = [];
  for (const [id, card] of board.cards) {
    if (state.placements.some((placement) => placement.id === id)) continue;
    card.element.remove();
    board.cards.delete(id);
  }
  for (const placement of state.placements) {
    const card = board.cards.get(placement.id);
    const is = ({ family, configuration }) => JSON.stringify([family, configuration]);
    const hasChanged = card && is(card.placement) !== is(placement);
    if (card) card.update(placement); else addCard(placement);
    if (hasChanged || !card) asked.push(refresh(board.cards.get(placement.id)));
  }
  // What is placed comes before what could be.
  const isOther = before.zone && isMasked !== (before.hidden || before.locked);
  if (hasOffers || isOther) Promise.all(asked).then(gallery.redraw);
  // No picture with amounts outlives their hiding, whatever becomes of the questions for others.
  if (isOther && isMasked) for (const holder of all('.picture, .thumb, .preview div')) holder.shadowRoot?.replaceChildren();
  if (isOther || before.problem !== state.problem) refreshAll();
  $('#empty').hidden = board.cards.size > 0;
  board.preview();
  showLamp();
  const clockOf = ({ zone, clockChanges }) => JSON.stringify([zone, clockChanges]);
  if (clockOf(before) !== clockOf(state)) setZone(state.zone, state.clockChanges);
}

function hear(name, data) {
  if (name === 'state') return take(data);
  const card = board.cards.get(data.id);
  return card && !(card.version >= data.version) && refresh(card);
}

function showLamp() {
  const states = [...board.cards.values()].map((card) => card.state);
  const worst = !isOpen ? 'failed' : ['failed', 'stale'].find((one) => states.includes(one)) ?? 'live';
  $('#lamp').dataset.state = worst;
  $('#lamp b').textContent = !isOpen ? 'Not connected' : { failed: 'Failing', stale: 'Out of date', live: 'Live' }[worst];
  $('#lamp span').textContent = isOpen && state.milliseconds !== undefined ? `${state.milliseconds} ms` : '';
}

function showPanel(panel) {
  document.body.dataset.panel = panel;
  for (const button of all('.tabs button')) button.ariaPressed = String(button.dataset.panel === panel);
  board.preview();
}

menu.onkeydown = (event) => {
  const items = all('button:not([hidden])', menu);
  const at = items.indexOf(document.activeElement);
  const next = { ArrowDown: at + 1, ArrowUp: at - 1, Home: 0, End: -1 }[event.key];
  if (next !== undefined) items.at(next % items.length).focus();
  else if (event.key === 'Tab') menu.hidePopover();
  else return;
  event.preventDefault();
};
$('#hide').onclick = board.toggleHidden;
$('#control').onclick = () => attempt(() => post('perform', { intent: state.control.intent }));
$('#showGallery').onclick = board.toggleGallery;
$('#closeGallery').onclick = board.toggleGallery;
$('#showKeys').onclick = () => $('#keys').showModal();
for (const button of all('.tabs button')) button.onclick = () => showPanel(button.dataset.panel);
if (innerWidth < 1200) document.body.classList.add('plain');
new ResizeObserver(() => board.preview()).observe(canvas);
onView.push(refreshAll);
keys.build(board);
let asked = first;
listen(hear, async (open) => {
  isOpen = open;
  if (!open) return showLamp();
  const isAgain = !asked;
  take(await attempt(() => asked ?? get('state')));
  asked = null;
  return isAgain && refreshAll();
});
