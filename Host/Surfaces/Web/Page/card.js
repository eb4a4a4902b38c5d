// One widget on the canvas: its picture, real links over it, what it says, and the line below.

import { get, post } from './host.js';
import { asQuery } from './settings.js';
import { attempt, icon, make, place, showPicture } from './dom.js';

const shortTime = (iso, zone) => {
  const format = (options) => new Intl.DateTimeFormat('en-GB', { ...options, timeZone: zone }).format(new Date(iso));
  const day = { year: 'numeric', month: '2-digit', day: '2-digit' };
  const isToday = format(day) === new Intl.DateTimeFormat('en-GB', { ...day, timeZone: zone }).format(new Date());
  return format(isToday ? { hour: '2-digit', minute: '2-digit' } : { day: 'numeric', month: 'short' });
};

export class Card {
  /** @param board what cards ask of the page: `openMenu(card, anchor)`, `select(id)`, `zone`, `nameOf(kind)` */
  constructor(placement, board) {
    this.board = board;
    this.face = make('div', { class: 'face' });
    this.words = make('div', { class: 'away', id: `words-${placement.id}` });
    this.name = make('h3');
    this.when = make('span');
    this.more = make('button', { class: 'icon bare', 'aria-haspopup': 'menu', onclick: () => board.openMenu(this, this.more) }, icon('more'));
    this.under = make('div', { class: 'under', onclick: (event) => { if (!this.more.contains(event.target)) board.select(this.placement.id); } }, this.name, this.when, this.more);
    this.element = make('li', { class: 'card', 'data-id': placement.id }, this.face, this.words, this.under);
    this.update(placement);
    this.showBones();
  }

  update(placement) {
    this.placement = placement;
    this.title = this.board.nameOf(placement.kind);
    this.name.textContent = this.title;
    this.more.setAttribute('aria-label', `Options of ${this.title}`);
  }

  /** Asks for the picture as the page shows it now. A later call wins; answers older than what is shown are dropped. */
  async refresh() {
    this.asking?.abort();
    this.asking = new AbortController();
    const answer = await attempt(() => get(`widget/${this.placement.id}`, asQuery(), this.asking.signal));
    if (answer && this.element.isConnected) this.show(answer);
  }

  show(answer) {
    this.answer = answer;
    this.element.dataset.state = answer.state;
    this.element.toggleAttribute('data-bare', Boolean(answer.svg));
    this.showWhen();
    this.words.replaceChildren(...answer.elements.map(({ role, label, value }) =>
      make('span', role === 'image' ? { role: 'img', 'aria-label': label } : {}, role === 'image' ? '' : [label, value].filter(Boolean).join(', '), ' ')));
    if (answer.note) this.words.append(make('span', {}, answer.note));
    if (answer.state === 'failed') this.showFailure();
    else if (answer.svg) this.showLive();
    else this.showBones();
  }

  showWhen() {
    const { state, asOf, since, note, reason } = this.answer;
    const time = (iso) => shortTime(iso, this.board.zone);
    const isSmall = this.placement.family === 'systemSmall';
    const texts = { placeholder: 'loading', live: asOf ? `${isSmall ? '' : 'as of '}${time(asOf)}` : '', stale: `since ${since ? time(since) : ''}`, failed: `failed ${since ? time(since) : ''}` };
    this.when.textContent = texts[state] ?? '';
    this.under.title = [note, state === 'live' ? '' : reason].filter(Boolean).join(' ');
  }

  showBones() {
    this.fill(make('div', { class: 'bones' }));
    this.element.removeAttribute('data-bare');
  }

  showFailure() {
    const { reason, nextTry } = this.answer;
    const again = make('button', { onclick: () => attempt(() => post('reload', { id: this.placement.id })) }, 'Try again');
    const next = nextTry && make('span', { class: 'quiet' }, `next try ${shortTime(nextTry, this.board.zone)}`);
    this.fill(make('div', { class: 'failure' }, make('strong', {}, icon('warning'), 'Could not draw'), make('p', {}, reason ?? ''), make('div', {}, again, next)));
  }

  showLive() {
    const { svg, link, regions, label } = this.answer;
    const picture = make('div', { class: 'picture', 'aria-hidden': 'true' });
    showPicture(picture, svg);
    const hits = regions.map((region) => this.hit(region.link, region.label, region.id, region));
    this.fill(picture, link && this.hit(link, label ?? this.title), ...hits);
    this.scaleHits();
  }

  /** A real link, so that it can be read and copied; the host opens it, and only if its own tree holds it. */
  hit(href, label, region, box) {
    const open = (event) => {
      event.preventDefault();
      attempt(() => post('open', { id: this.placement.id, region }));
    };
    const anchor = make('a', { class: box ? 'hit' : 'hit whole', href, 'aria-label': label, draggable: 'false', onclick: open, 'aria-describedby': box ? undefined : this.words.id });
    anchor.box = box;
    return anchor;
  }

  scaleHits() {
    const zoom = this.zoom ?? 1;
    for (const anchor of this.face.querySelectorAll('.hit')) {
      const box = anchor.box;
      if (box) place(anchor, { x: box.x * zoom, y: box.y * zoom, w: box.width * zoom, h: box.height * zoom });
    }
  }

  /** Swaps what is on the face; the focus stays where a person left it. */
  fill(...children) {
    const before = [...this.face.querySelectorAll('a, button')];
    const focused = before.indexOf(document.activeElement);
    this.face.replaceChildren(...children.filter(Boolean));
    if (focused >= 0) (this.face.querySelectorAll('a, button')[focused] ?? this.more).focus();
  }

  place(x, y, width, height, zoom) {
    this.zoom = zoom;
    place(this.element, { x, y, w: width, h: height, zoom });
    this.scaleHits();
  }

  focus() { (this.face.querySelector('a, button') ?? this.more).focus(); }
}
