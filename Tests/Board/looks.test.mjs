// What a person sees and hears: pictures of the page in build/board to look at, every pixel of ten widgets beside each other,
// the accessibility tree, and a checker of accessibility.

import assert from 'node:assert/strict';
import { mkdirSync, readFileSync } from 'node:fs';
import { dirname, join, resolve } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { focusCard, kTen, live, scene } from './scene.mjs';

const kHere = dirname(fileURLToPath(import.meta.url));
const pictures = process.env.BOARD_PICTURES ?? resolve(kHere, '../../build/board');
const axe = readFileSync(join(kHere, 'node_modules/axe-core/axe.min.js'), 'utf8');
const kNoon = `?now=${new Date().toISOString().slice(0, 10)}T12%3A00%3A00Z`;

let stage;
before(async () => { mkdirSync(pictures, { recursive: true }); stage = await scene(); });
after(() => stage.end());

const previews = (page) => page.until(() => [...document.querySelectorAll('.thumb')].every((thumb) => !thumb.checkVisibility() || thumb.shadowRoot?.querySelector('svg *')));

/** The page in a state: how it is opened, and what a person does then. */
const kStates = {
  light: { view: {} },
  dark: { view: { dark: true } },
  forced: { view: { forced: true } },
  'forced-dark': { view: { forced: true, dark: true } },
  320: { view: { width: 320, height: 1600 } },
  360: { view: { width: 360, height: 1600, dark: true } },
  768: { view: { width: 768, height: 1000 } },
  2560: { view: { width: 2560, height: 1440 } },
  hidden: { view: {}, act: async (page) => { await page.press('p'); await page.until(() => [...document.querySelectorAll('.words')].every((words) => !/\$\d/.test(words.textContent))); } },
  locked: { view: {}, act: async (page) => { await page.press('p'); await page.press('p'); await page.until(() => document.querySelectorAll('.words')[0].textContent.length < 40); } },
  gallery: { view: {}, act: async (page) => { await page.click('.offer:nth-child(3) > button'); await page.click('.offer[data-open] label[title=Large]'); } },
  'gallery-320': { view: { width: 320, height: 800 }, act: async (page) => { await page.click('.tabs button:nth-child(2)'); await page.click('.offer:nth-child(1) > button'); } },
  'view-320': { view: { width: 320, height: 800 }, act: (page) => page.click('.tabs button:nth-child(3)') },
  'gallery-768': { view: { width: 768, height: 800 }, act: (page) => page.press('a') },
  menu: { view: { dark: true }, act: (page) => page.click('[data-id=w2] .more') },
  card: { view: {}, act: async (page) => { await focusCard(page, 'w4'); await page.press('e'); await page.until(() => document.querySelectorAll('.choices input').length === 4); } },
  style: { view: { dark: true }, act: async (page) => { await focusCard(page, 'w3'); await page.press('e');
    await page.until(() => [...document.querySelectorAll('.styles .thumb')].filter((thumb) => thumb.shadowRoot?.querySelector('svg *')).length === 2); } },
  'card-320': { view: { width: 320, height: 640 }, act: async (page) => { await focusCard(page, 'w4'); await page.press('e'); await page.until(() => document.querySelectorAll('.choices input').length === 4); } },
  keys: { view: {}, act: (page) => page.press('?') },
  moving: { view: {}, act: async (page) => { await focusCard(page, 'w3'); await page.press('m'); await page.press('ArrowDown'); await page.press('ArrowRight'); } },
  removed: { view: {}, act: async (page) => { await focusCard(page, 'w10'); await page.press('Delete'); await page.until(() => document.querySelector('#toasts span')); }, undo: (page) => page.click('#toasts button') },
};

for (const [name, { view, act, undo }] of Object.entries(kStates)) {
  test(`${name}: drawn, without a violation of accessibility, nothing beside the page`, async () => {
    const page = await stage.open(view);
    await act?.(page);
    await previews(page);
    await page.save(join(pictures, `${name}.png`));
    await page.send('Runtime.evaluate', { expression: axe });
    const violations = await page.run(() => axe.run(document, { resultTypes: ['violations'] }).then((result) =>
      result.violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ target, failureSummary }) => `${target} ${failureSummary.replace(/\s+/g, ' ')}`).slice(0, 3).join('; ')}`)));
    assert.deepEqual(violations, []);
    assert.equal(await page.run(() => document.documentElement.scrollWidth > innerWidth), false);
    assert.deepEqual(page.problems, []);
    await undo?.(page);
    if (undo) await live(page, kTen.length);
    await page.close();
  });
}

test('ten widgets beside each other are, pixel by pixel, the same ten alone', async () => {
  const open = async () => {
    const page = await stage.open({ height: 1300, scale: 2 }, kNoon);
    // The shadows of neighbours reach each other's corners.
    await page.run(() => { const sheet = new CSSStyleSheet(); sheet.replaceSync('.face { box-shadow: none !important; }'); document.adoptedStyleSheets = [sheet]; });
    return page;
  };
  const boxOf = (page, id) => page.run((card) => { const { x, y, width, height } = document.querySelector(`[data-id=${card}] .face`).getBoundingClientRect(); return { x, y, width, height }; }, id);
  const together = await open();
  for (const id of await together.run(() => [...document.querySelectorAll('.card')].map((card) => card.dataset.id))) {
    const alone = await open();
    await alone.run((only) => { for (const card of document.querySelectorAll('.card')) if (card.dataset.id !== only) card.remove(); }, id);
    const box = await boxOf(together, id);
    assert.deepEqual(await boxOf(alone, id), box);
    assert.ok((await together.picture(box)).equals(await alone.picture(box)), id);
    await alone.close();
  }
  await together.close();
});

test('a screen reader finds landmarks, a list of ten, and every amount', async () => {
  const page = await stage.open({}, kNoon);
  const spoken = await page.spoken();
  const named = (role) => spoken.filter((one) => one.role === role).map(({ name }) => name);
  for (const [role, name] of [['banner', ''], ['form', 'View'], ['complementary', 'Gallery'], ['main', 'Widgets']])
    assert.ok(named(role).includes(name), `${role} ${name}: ${named(role)}`);
  assert.deepEqual(named('heading'), ['Board', 'Gallery', 'Net Worth', 'Spending This Month', 'Safe to Spend', 'Remaining Limit', 'Next Due', 'Net Worth', 'Next Due', 'Remaining Limit', 'Spending This Month', 'Safe to Spend']);
  const links = spoken.filter(({ role }) => role === 'link').map(({ name }) => name);
  for (const name of ['Net Worth', 'Next Due', 'Remaining Limit']) assert.ok(links.includes(name), name);
  const texts = named('StaticText').join(' ');
  for (const amount of ['$97,260', '$51,240', '$8,320']) assert.ok(texts.includes(amount), amount);
  assert.ok(!spoken.some(({ role, name }) => ['link', 'button', 'radio', 'textbox', 'searchbox', 'combobox'].includes(role) && !name), 'everything that acts has a name');
  assert.equal(spoken.filter(({ role, name }) => role === 'button' && name.startsWith('Options of')).length, 10);
  await page.close();
});

test('nothing moves for who wants no motion', async () => {
  const page = await stage.open({ reduced: true }, kNoon);
  assert.equal(await page.run(() => document.getAnimations().length), 0);
  await page.close();
});
