// What can be placed: one item open at a time, with its real preview per family.

import { get } from './host.js';
import { asQuery, changes } from './settings.js';
import { attempt, make, showPicture } from './dom.js';
import { letters, sizeField } from './sheet.js';
import { startDrag } from './drag.js';

const list = document.getElementById('offers');
const search = document.getElementById('search');
let opened = '';
let family = {};

async function picture(offer, size, width) {
  const holder = make('span', { class: 'preview', 'aria-hidden': 'true' });
  const answer = await attempt(() => get('preview', { ...asQuery(), kind: offer.kind, family: size }));
  if (!answer?.svg) return holder;
  const inner = make('span');
  inner.style.width = `${width}px`;
  inner.style.height = `${width * answer.height / answer.width}px`;
  showPicture(inner, answer.svg);
  holder.append(inner);
  return holder;
}

const kWidths = { systemSmall: 110, systemMedium: 206, systemLarge: 180 };

function trial(offer, board) {
  const chosen = family[offer.kind] ?? offer.families[0];
  const stage = make('div', { class: 'preview' });
  const show = () => picture(offer, family[offer.kind] ?? chosen, kWidths[family[offer.kind] ?? chosen] ?? 110).then((shown) => stage.replaceChildren(shown));
  const add = () => board.add(offer.kind, family[offer.kind] ?? chosen);
  stage.addEventListener('pointerdown', (event) => startDrag(event, { board, family: family[offer.kind] ?? chosen, source: stage, drop: (cell) => board.add(offer.kind, family[offer.kind] ?? chosen, cell) }));
  show();
  return make('div', { class: 'try' }, stage, make('div', { class: 'row' },
    sizeField(offer.families, chosen, (size) => { family[offer.kind] = size; show(); }, `size-${offer.kind}`),
    make('button', { class: 'main', 'aria-label': `Add ${offer.name}`, onclick: add }, 'Add')));
}

function row(offer, board) {
  const isOpen = opened === offer.kind;
  const thumb = make('span', { class: 'thumb' });
  if (!isOpen) picture(offer, offer.families[0], 60).then((shown) => thumb.replaceChildren(shown));
  const toggle = () => { opened = isOpen ? '' : offer.kind; show(board); list.querySelector(`[data-kind="${offer.kind}"] button`).focus(); };
  return make('li', { class: 'offer', 'data-kind': offer.kind, 'data-open': isOpen },
    make('button', { class: 'bare', 'aria-expanded': String(isOpen), onclick: toggle }, thumb,
      make('span', {}, make('b', {}, offer.name), make('small', {}, offer.description), !isOpen && make('small', {}, offer.families.map((size) => letters[size]).join(' · ')))),
    isOpen && trial(offer, board));
}

export function show(board) {
  const words = search.value.trim().toLowerCase();
  const found = board.state.gallery.filter((offer) => `${offer.name} ${offer.description}`.toLowerCase().includes(words));
  list.replaceChildren(...found.map((offer) => row(offer, board)));
  document.getElementById('noOffer').hidden = found.length > 0;
}

export function build(board) {
  search.addEventListener('input', () => show(board));
  let waiting;
  changes.addEventListener('change', () => { clearTimeout(waiting); waiting = setTimeout(() => show(board), 150); });
  show(board);
}
