// The page: keeps the cards beside what the host says, and does what a person asks.

import { blob, get, listen, post } from './host.js';
import { asQuery, changes } from './settings.js';
import { attempt, make, place, say, toast } from './dom.js';
import { flow, freeCell, kPitch, makeRoom, spanOf } from './grid.js';
import { Card } from './card.js';
import * as gallery from './gallery.js';
import * as keys from './keys.js';
import * as menu from './menu.js';
import * as sheet from './sheet.js';
import * as toolbar from './toolbar.js';
import { startDrag } from './drag.js';

const byId = (id) => document.getElementById(id);
const kGap = 24;
const kSizes = { systemSmall: [170, 170], systemMedium: [364, 170], systemLarge: [364, 382] };

const board = {
  state: { placements: [], gallery: [] },
  cards: new Map(),
  placed: [],
  removed: [],
  grid: byId('grid'),
  get zone() { return this.state.zone; },
  offerOf: (kind) => board.state.gallery.find((offer) => offer.kind === kind),
  nameOf: (kind) => board.offerOf(kind)?.name ?? kind,

  // ---- what the host says

  async load() {
    const state = await attempt(() => get('state'));
    if (state) this.take(state);
    return state;
  },

  take(state) {
    this.state = state;
    byId('container').textContent = state.container;
    byId('hide').setAttribute('aria-pressed', String(state.hidden));
    byId('hide').querySelector('use').setAttribute('href', state.hidden ? '#i-eye-off' : '#i-eye');
    byId('hide').title = state.locked ? 'The session counts as locked: amounts are hidden in any case.' : '';
    byId('control').hidden = !state.control;
    if (state.control) byId('control').querySelector('span').textContent = state.control.name;
    this.takePlacements();
    this.showLamp();
  },

  takePlacements() {
    const ids = new Set(this.state.placements.map(({ id }) => id));
    for (const [id, card] of this.cards) if (!ids.has(id)) { card.element.remove(); this.cards.delete(id); }
    for (const placement of this.state.placements) {
      const card = this.cards.get(placement.id);
      const changed = card && (card.placement.family !== placement.family || JSON.stringify(card.placement.configuration) !== JSON.stringify(placement.configuration));
      if (card) card.update(placement); else this.addCard(placement);
      if (changed) card.refresh();
    }
    byId('empty').hidden = this.cards.size > 0;
    this.layOut();
  },

  addCard(placement) {
    const card = new Card(placement, this);
    this.cards.set(placement.id, card);
    this.grid.append(card.element);
    card.face.addEventListener('pointerdown', (event) => startDrag(event, {
      board: this, family: card.placement.family, source: card.face, drop: (cell) => this.move(card.placement.id, cell),
      moving: (dx, dy) => {
        card.element.classList.toggle('moving', dx !== undefined);
        if (dx === undefined) this.layOut(); else place(card.element, { x: card.left + dx, y: card.top + dy });
      },
    }));
    card.element.addEventListener('contextmenu', (event) => { event.preventDefault(); this.openMenu(card, card.more, event.clientX ? { x: event.clientX, y: event.clientY } : undefined); });
    card.refresh();
  },

  hear(name, data) {
    if (name === 'state') this.take(data);
    const card = name === 'widget' && this.cards.get(data.id);
    if (card && !(card.answer?.version >= data.version)) card.refresh().then(() => this.showLamp());
  },

  showLamp(open = this.open) {
    this.open = open;
    const states = [...this.cards.values()].map((card) => card.answer?.state ?? 'placeholder');
    const worst = !open ? 'failed' : ['failed', 'stale'].find((state) => states.includes(state)) ?? 'live';
    byId('lamp').dataset.state = worst;
    byId('lampText').textContent = !open ? 'Not connected' : { failed: 'Failing', stale: 'Out of date', live: 'Live' }[worst];
    byId('lampDetail').textContent = open && this.state.milliseconds !== undefined ? `${this.state.milliseconds} ms` : '';
  },

  // ---- where cards stand

  get zoom() { return innerWidth < 720 ? (innerWidth - 32) / 364 : 1; },
  get columns() { return innerWidth < 720 ? 2 : Math.max(1, Math.floor((byId('canvas').clientWidth - 64 + kGap) / kPitch.x)); },

  boxOf({ column, row, family }) {
    const [width, height] = kSizes[family] ?? kSizes.systemSmall;
    const zoom = this.zoom;
    const pitchY = innerWidth < 720 ? kPitch.y * zoom + 18 : kPitch.y;
    return { x: column * kPitch.x * zoom, y: row * pitchY, w: width * zoom, h: height * zoom };
  },

  layOut(items = this.state.placements) {
    this.placed = flow(items, this.columns);
    let bottom = 0;
    for (const item of this.placed) {
      const card = this.cards.get(item.id);
      const { x, y, w, h } = this.boxOf(item);
      if (!card) continue;
      card.shown = item;
      [card.left, card.top] = [x, y];
      card.place(x, y, w, h, this.zoom);
      bottom = Math.max(bottom, y + h + 40);
    }
    this.grid.style.height = `${bottom}px`;
    // The reading order is the order of the document, so that Tab and a screen reader follow the eye.
    const order = [...this.placed].sort((a, b) => a.row - b.row || a.column - b.column).map(({ id }) => this.cards.get(id)?.element);
    const focused = document.activeElement;
    order.forEach((element, i) => { if (element && this.grid.children[i] !== element) this.grid.insertBefore(element, this.grid.children[i] ?? null); });
    if (focused !== document.activeElement && this.grid.contains(focused)) focused.focus();
  },

  cellAt(x, y, family) {
    const grid = this.grid.getBoundingClientRect();
    const canvas = byId('canvas').getBoundingClientRect();
    if (x < canvas.left || x > canvas.right || y < canvas.top || y > canvas.bottom) return undefined;
    const cell = this.boxOf({ column: 1, row: 1, family: 'systemSmall' });
    return this.clampCell({ column: Math.floor((x - grid.left) / cell.x), row: Math.floor((y - grid.top) / cell.y) }, family);
  },

  clampCell: ({ column, row }, family) => ({ column: Math.max(0, Math.min(column, board.columns - spanOf(family)[0])), row: Math.max(0, row) }),

  previewMove(card, cell) { this.layOut(makeRoom(this.placed, { ...card.shown, ...cell }, this.columns)); },

  // ---- what a person asks

  async move(id, cell) {
    const moved = makeRoom(this.placed, { ...this.placed.find((item) => item.id === id), ...cell }, this.columns);
    const before = new Map(this.state.placements.map((item) => [item.id, item]));
    this.state.placements = moved;
    this.layOut();
    const [first] = moved;
    say(`${this.nameOf(first.kind)}, column ${first.column + 1}, row ${first.row + 1}`);
    await attempt(async () => {
      for (const { id: other, column, row } of moved) {
        const old = before.get(other);
        if (old.column !== column || old.row !== row) await post('move', { id: other, column, row });
      }
    });
    await this.load();
  },

  async add(kind, family, cell) {
    const where = cell ?? freeCell(family, this.placed, this.columns);
    const answer = await attempt(() => post('add', { kind, family, configuration: {}, ...where }));
    if (!answer) return;
    await this.load();
    if (cell) await this.move(answer.id, cell);
    this.showPanel('widgets');
    const card = this.cards.get(answer.id);
    card?.element.scrollIntoView({ block: 'nearest' });
    card?.focus();
    say(`${this.nameOf(kind)} added, column ${where.column + 1}, row ${where.row + 1}`);
  },

  async remove(card) {
    const { placement, title } = card;
    if (await attempt(() => post('remove', { id: placement.id })) === undefined) return;
    this.removed.push(placement);
    await this.load();
    [...this.cards.values()][0]?.focus();
    toast(`${title} removed.`, { name: 'Undo', run: () => this.undo() });
  },

  async undo() {
    const last = this.removed.pop();
    if (!last) return;
    const { kind, family, configuration, column, row } = last;
    const answer = await attempt(() => post('add', { kind, family, configuration, column, row }));
    await this.load();
    this.cards.get(answer?.id)?.focus();
  },

  async resize(card, family) {
    const { id, kind, configuration } = card.placement;
    if (!this.offerOf(kind)?.families.includes(family)) return say(`${card.title} has no such size.`);
    if (await attempt(() => post('configure', { id, family, configuration })) === undefined) return undefined;
    await this.load();
    return this.move(id, this.clampCell(card.shown, family));
  },

  reload: (card) => attempt(() => post('reload', { id: card.placement.id })),
  edit(card) { const offer = this.offerOf(card.placement.kind); if (offer) sheet.edit(card.placement, offer, () => { card.focus(); this.load(); }); },

  async download(card, form) {
    const file = await attempt(() => blob(`widget/${card.placement.id}.${form}`, asQuery()));
    if (!file) return;
    const link = make('a', { href: URL.createObjectURL(file), download: `${card.title} ${sheet.letters[card.placement.family] ?? ''}`.trim() + `.${form}` });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  },

  openMenu(card, anchor, point) {
    const offer = this.offerOf(card.placement.kind);
    const families = offer?.families ?? [];
    menu.open([
      { name: 'Edit widget', key: 'E', run: () => this.edit(card) },
      { name: 'Reload now', key: 'R', run: () => this.reload(card) },
      { name: 'Move', key: 'M', run: () => keys.moveByKeys(this, card) }, null,
      ...(families.length > 1 ? [...families.map((family, i) => ({ name: sheet.sizes[family], key: String(i + 1), checked: family === card.placement.family, run: () => this.resize(card, family) })), null] : []),
      { name: 'Download PNG', run: () => this.download(card, 'png') },
      { name: 'Download SVG', run: () => this.download(card, 'svg') }, null,
      { name: 'Remove', key: 'Del', danger: true, run: () => this.remove(card) },
    ], anchor, point);
  },

  select(id) {
    for (const card of this.cards.values()) card.element.toggleAttribute('aria-current', false);
    this.cards.get(id)?.element.setAttribute('aria-current', 'true');
  },

  toggleHidden: () => attempt(async () => { await post('hide', { hidden: !board.state.hidden }); await board.load(); say(board.state.hidden ? 'Amounts are hidden everywhere.' : 'Amounts are shown.'); }),

  toggleGallery() {
    if (innerWidth < 720) return this.showPanel('gallery');
    const closed = document.body.classList.toggle('plain');
    byId('showGallery').setAttribute('aria-expanded', String(!closed));
    if (closed) byId('showGallery').focus();
    return this.layOut();
  },

  search() {
    if (document.body.classList.contains('plain') || innerWidth < 720) this.toggleGallery();
    byId('search').focus();
  },

  showPanel(panel) {
    document.body.dataset.panel = panel;
    for (const button of document.querySelectorAll('.tabs button')) button.setAttribute('aria-pressed', String(button.dataset.panel === panel));
    this.layOut();
  },
};

function refreshAll() {
  for (const card of board.cards.values()) card.refresh();
}

byId('hide').addEventListener('click', board.toggleHidden);
byId('control').addEventListener('click', () => attempt(() => post('perform', { intent: board.state.control.intent })));
byId('showGallery').addEventListener('click', () => board.toggleGallery());
byId('closeGallery').addEventListener('click', () => board.toggleGallery());
byId('showKeys').addEventListener('click', keys.showHelp);
for (const button of document.querySelectorAll('.tabs button')) button.addEventListener('click', () => board.showPanel(button.dataset.panel));
if (innerWidth < 1200) document.body.classList.add('plain');
board.showPanel('widgets');
new ResizeObserver(() => board.layOut()).observe(byId('canvas'));
changes.addEventListener('change', refreshAll);

if (await board.load()) {
  toolbar.build(board.zone);
  gallery.build(board);
  keys.build(board);
}
listen((name, data) => board.hear(name, data), (open) => { board.showLamp(open); if (open) board.load().then(refreshAll); });
