// What the tests of the board share: ten widgets, a page that shows them, and what is read off it.

import { Browser, until } from './browser.mjs';
import { Host } from './host.mjs';

export const kTen = [['NetWorth', 'Large', 0, 0], ['Spending', 'Medium', 2, 0], ['SafeToSpend', 'Small', 2, 1], ['CardLimit', 'Small', 3, 1], ['Due', 'Medium', 0, 2],
  ['NetWorth', 'Small', 2, 2], ['Due', 'Small', 3, 2], ['CardLimit', 'Medium', 0, 3], ['Spending', 'Small', 2, 3], ['SafeToSpend', 'Medium', 0, 4]]
  .map(([kind, family, column, row], i) => ({ id: `w${i + 1}`, kind: `Quorvel${kind}Widget`, family: `system${family}`, configuration: {}, board: { column, row } }));

/** Waits until `count` cards are live and their pictures drawn. */
export const live = (page, count) => page.until((least) => {
  const cards = [...document.querySelectorAll('.card')];
  return cards.length >= least && cards.every((card) => card.dataset.state === 'live' && card.querySelector('.picture').shadowRoot?.querySelector('svg *'));
}, count);

/** The last words that a screen reader was told. */
export const said = (page) => page.run(() => document.querySelector('#said').textContent);
/** What is spoken of a card. */
export const words = (page, id) => page.run((card) => document.querySelector(`.card[data-id=${card}] .words`).textContent, id);
/** Where the page shows a card, in cells of the wide layout. */
export const cellOf = (page, id) => page.run((card) => {
  const { style } = document.querySelector(`.card[data-id=${card}]`);
  return [Number(style.getPropertyValue('--x')) / 194, Number(style.getPropertyValue('--y')) / 212];
}, id);
export const pictureOf = (page, id) => page.run((card) => document.querySelector(`.card[data-id=${card}] .picture`).shadowRoot.innerHTML, id);
/** A point of the canvas in a cell. */
export const pointIn = (page, column, row) => page.run((x, y) => {
  const { left, top } = document.querySelector('#grid').getBoundingClientRect();
  return { x: left + x * 194 + 60, y: top + y * 212 + 60 };
}, column, row);
export const face = (id) => `.card[data-id=${id}] .face`;
export const focusCard = (page, id) => page.run((card) => document.querySelector(`.card[data-id=${card}] :is(a[href], .more)`).focus(), id);

/** A host and a browser for a file of tests; `more` goes to Host.start(). */
export async function scene(more = {}) {
  const host = await Host.start({ placements: kTen, ...more });
  const browser = await Browser.start();
  return { host, browser,
    async open(view, query = '') {
      const url = new URL(host.board());
      const page = await browser.open(`${url.origin}/${query}${url.hash}`, view);
      await live(page, host.placements().length);
      return page;
    },
    async end() { await browser.close(); await host.end(); } };
}

export { until };
