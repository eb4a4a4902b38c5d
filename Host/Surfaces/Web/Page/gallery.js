// What can be placed: one item open at a time, with its real preview per family.

import { get } from './host.js';
import { onView, view } from './view.js';
import { $, all, copy, place, showPicture } from './dom.js';
import { sizeOf } from './grid.js';
import { letters, sizeField } from './sheet.js';
import { startDrag } from './drag.js';

const kWidths = { systemSmall: 110, systemMedium: 198, systemLarge: 180 };
const list = $('#offers');
const search = $('#search');

/** Draws a widget that is not placed, `width` pixels wide. Without an answer the place stays as it was. */
export async function drawPreview(holder, subject, width) {
  const [w, h] = sizeOf(subject.family);
  place(holder, { w: width, h: width * h / w });
  const { svg } = await get('preview', { ...view(), ...subject }).catch(() => ({}));
  if (svg) showPicture(holder, svg);
}

class Offer {
  constructor(offer, board) {
    this.offer = offer;
    [this.family] = offer.families;
    this.element = copy('offer');
    const [button, add] = [$('button', this.element), $('.main', this.element)];
    const [description, sizes] = all('small', button);
    $('b', button).textContent = offer.name;
    description.textContent = offer.description;
    sizes.textContent = offer.families.map((family) => letters[family]).join(' · ');
    button.onclick = () => toggle(this);
    const choose = (family) => { this.family = family; this.draw(); };
    $('.segments', this.element).append(...sizeField(`size-${offer.kind}`, offer.families, this.family, choose));
    add.ariaLabel = `Add ${offer.name}`;
    add.onclick = () => board.add(offer.kind, this.family);
    $('.preview', this.element).onpointerdown = (event) =>
      startDrag(event, board, { family: this.family }, (cell) => board.add(offer.kind, this.family, cell));
  }

  get isOpen() { return this.element.hasAttribute('data-open'); }

  open(isOpen) {
    this.element.toggleAttribute('data-open', isOpen);
    $('button', this.element).ariaExpanded = String(isOpen);
    $('.try', this.element).hidden = !isOpen;
    if (isOpen) this.draw();
  }

  draw() {
    const { kind, families } = this.offer;
    if (this.isOpen) drawPreview($('.preview div', this.element), { kind, family: this.family }, kWidths[this.family]);
    else drawPreview($('.thumb', this.element), { kind, family: families[0] }, 60);
  }
}

let offers = [];

function toggle(chosen) {
  for (const offer of offers) if (offer.isOpen || offer === chosen) offer.open(offer === chosen && !offer.isOpen);
}

function filter() {
  const words = search.value.trim().toLowerCase();
  for (const { element, offer } of offers) element.hidden = !`${offer.name} ${offer.description}`.toLowerCase().includes(words);
  $('#noOffer').hidden = offers.some(({ element }) => !element.hidden);
}

export function show(gallery, board) {
  offers = gallery.map((offer) => new Offer(offer, board));
  list.replaceChildren(...offers.map(({ element }) => element));
  filter();
}

export const redraw = () => { for (const offer of offers) offer.draw(); };

search.oninput = filter;
let waiting;
onView.push(() => { clearTimeout(waiting); waiting = setTimeout(redraw, 150); });
