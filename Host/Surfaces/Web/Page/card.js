// One widget on the canvas: its picture, real links over it, what it says, and the line below.

import { get, post } from './host.js';
import { view } from './view.js';
import { $, all, attempt, copy, make, place, showPicture } from './dom.js';

/** Hours and minutes, or the day when it is another one. */
function shortTime(iso, timeZone) {
  const text = (options) => new Intl.DateTimeFormat('en-GB', { timeZone, ...options }).format(Date.parse(iso));
  const isToday = text({}) === new Intl.DateTimeFormat('en-GB', { timeZone }).format();
  return text(isToday ? { hour: '2-digit', minute: '2-digit' } : { day: 'numeric', month: 'short' });
}

export class Card {
  /** @param board what cards ask of the page: `offerOf(kind)`, `zone` */
  constructor(placement, board) {
    this.board = board;
    this.element = copy('card');
    for (const name of ['face', 'picture', 'whole', 'regions', 'failure', 'words', 'when', 'more']) {
      this[name] = $(`.${name}`, this.element);
    }
    this.element.dataset.id = placement.id;
    this.words.id = `words-${placement.id}`;
    this.whole.setAttribute('aria-describedby', this.words.id);
    this.whole.onclick = (event) => this.open(event);
    $('button', this.failure).onclick = () => this.reload();
    this.update(placement);
  }

  get id() { return this.placement.id; }
  get state() { return this.element.dataset.state; }
  get title() { return this.board.offerOf(this.placement.kind)?.name ?? this.placement.kind; }

  update(placement) {
    this.placement = placement;
    $('h2', this.element).textContent = this.title;
    this.more.ariaLabel = `Options of ${this.title}`;
  }

  reload() { return attempt(() => post('reload', { id: this.id })); }

  /** Real links, so that they can be read and copied; the host opens them, and only if its own tree holds them. */
  open(event, region) {
    event.preventDefault();
    attempt(() => post('open', { id: this.id, region }));
  }

  /** Asks for the picture as the page shows it now. A later call wins. */
  async refresh() {
    this.asking?.abort();
    this.asking = new AbortController();
    const { signal } = this.asking;
    this.lost = this.findLost();
    const answer = await attempt(() => get(`widget/${this.id}`, view(), signal));
    const lost = await this.lost;
    if (answer && !signal.aborted) this.show(answer, lost);
  }

  /** The title of a parameter whose choice the document no longer has. */
  async findLost() {
    const { kind, configuration } = this.placement;
    for (const { name, title, type } of this.board.offerOf(kind)?.parameters ?? []) {
      const id = configuration[name];
      if (type !== 'entity' || !id) continue;
      const { options } = await get('options', { kind, parameter: name, id }).catch(() => ({}));
      if (options && !options.length) return title;
    }
    return undefined;
  }

  show(answer, lost) {
    const { state, version, svg, link, label, regions, elements, reason, nextTry } = answer;
    this.version = version;
    this.element.dataset.state = state;
    this.showLine(answer, lost);
    const gone = lost && `The chosen ${lost.toLowerCase()} is no longer in the document, so the widget shows all of them.`;
    this.element.title = [gone, state === 'live' ? '' : reason].filter(Boolean).join(' ');
    const wordsOf = ({ role, label, value }) => (role === 'image' ? make('span', { role: 'img', ariaLabel: label })
      : make('span', {}, [label, value].filter(Boolean).join(', '), ' '));
    this.words.replaceChildren(...elements.map(wordsOf), make('span', {}, this.element.title));
    showPicture(this.picture, svg ?? '<svg xmlns="http://www.w3.org/2000/svg"/>');
    if (link && state !== 'failed') this.whole.href = link; else this.whole.removeAttribute('href');
    this.whole.ariaLabel = label || this.title;
    this.showRegions(regions);
    $('p', this.failure).textContent = reason;
    $('span', this.failure).textContent = nextTry ? `next try ${shortTime(nextTry, this.board.zone)}` : '';
  }

  showLine({ state, asOf, since }, lost) {
    const time = (iso) => (iso ? shortTime(iso, this.board.zone) : '');
    const isSmall = this.placement.family === 'systemSmall';
    const texts = {
      placeholder: 'loading',
      live: `${isSmall || !asOf ? '' : 'as of '}${time(asOf)}`,
      stale: `since ${time(since)}`,
      failed: `failed ${time(since)}`,
    };
    this.when.textContent = lost && state === 'live' ? `${lost} is gone` : texts[state];
    this.element.toggleAttribute('data-lost', Boolean(lost));
  }

  /** The focus stays on the region that had it. */
  showRegions(regions) {
    const focused = all('a', this.regions).indexOf(document.activeElement);
    this.boxes = regions;
    this.regions.replaceChildren(...regions.map(({ id, link, label }) =>
      make('a', {
        className: 'hit', href: link, ariaLabel: label, draggable: false, onclick: (event) => this.open(event, id),
      })));
    this.placeRegions();
    if (focused >= 0) (this.regions.children[focused] ?? this.focusable).focus();
  }

  placeRegions() {
    for (const [i, { x, y, width, height }] of (this.boxes ?? []).entries()) {
      place(this.regions.children[i], { x: x * this.zoom, y: y * this.zoom, w: width * this.zoom, h: height * this.zoom });
    }
  }

  place(box, zoom) {
    this.box = box;
    this.zoom = zoom;
    place(this.element, { ...box, zoom });
    this.placeRegions();
  }

  get focusable() { return this.whole.href ? this.whole : this.more; }
  focus() { this.focusable.focus(); }
}
