// What is done around every test of the page: one host and one browser for a file of tests, a page of its own for each, and
// the placements as they were behind it. Importing it is enough; `stage` and `page` are those of the running test.

import assert from 'node:assert/strict';
import { after, before, beforeEach, afterEach } from 'node:test';
import { kTen, scene } from './scene.mjs';

export let stage;
export let page;
before(async () => { stage = await scene({ tz: 'Europe/Berlin' }); });
after(() => stage.end());
beforeEach(async () => { page = await stage.open(); });
afterEach(async () => {
  assert.deepEqual(page.problems, []);
  await page.close();
  await restore();
});

/** The placements as they were, whatever a test did to them. */
async function restore() {
  const placed = stage.host.placements();
  for (const { id } of placed) stage.host.ask('remove', id);
  await stage.host.stop();
  stage.host.place(kTen);
  stage.host.write(stage.host.sample());
  await stage.host.run();
  await stage.host.isLive(kTen.length);
}

export const text = (selector) => page.run((name) => document.querySelector(name)?.textContent.trim(), selector);
export const placement = (id) => stage.host.placements().find((one) => one.id === id);
export const menuItem = (name) => page.run((label) => {
  const items = [...document.querySelectorAll('#menu button')];
  items.forEach((item) => item.removeAttribute('id'));
  items.find((item) => item.textContent.startsWith(label)).id = 'chosen';
}, name).then(() => '#chosen');
export const openMenu = (id) => page.click(`.card[data-id=${id}] .more`);
