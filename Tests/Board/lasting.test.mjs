// What goes wrong while a page is open, and what stays when pages come and go.

import assert from 'node:assert/strict';
import { mkdirSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { binaries } from './host.mjs';
import { kTen, live, scene, until, words } from './scene.mjs';

let stage;
before(async () => {
  if (process.env.BOARD_PICTURES) mkdirSync(process.env.BOARD_PICTURES, { recursive: true });
  stage = await scene();
});
after(() => stage.end());

const stateOf = (page, id) => page.run((card) => document.querySelector(`.card[data-id=${card}]`).dataset.state, id);
const text = (page, selector) => page.run((name) => document.querySelector(name).textContent, selector);

test('a killed extension is back before anybody notices', async () => {
  const page = await stage.open();
  const document = stage.host.sample();
  for (const value of [111111, 222222, 333333]) {
    stage.host.killExtension();
    document.netWorth.value = value;
    stage.host.write(document);
    await page.until((amount) => globalThis.document.querySelector('[data-id=w1] .words').textContent.includes(amount), value.toLocaleString('en'));
    assert.equal(await stateOf(page, 'w1'), 'live');
  }
  assert.deepEqual(page.problems, []);
  await page.close();
});

test('a container that vanishes and comes back is followed', async () => {
  const page = await stage.open();
  rmSync(join(stage.host.folder, 'container/widget-snapshot.json'));
  await page.until(() => document.querySelector('[data-id=w1] .words').textContent.includes('Quorvel'));
  stage.host.write(stage.host.sample());
  await page.until(() => document.querySelector('[data-id=w1] .words').textContent.includes('97,260'));
  assert.deepEqual(page.problems, []);
  await page.close();
});

test('an extension that no longer starts leaves the last pictures, and says since when', async () => {
  const broken = join(stage.host.folder, 'broken');
  const wrapper = join(stage.host.folder, 'extension');
  writeFileSync(wrapper, `#!/bin/sh\n[ -e ${broken} ] && exit 1\nexec ${binaries}/quorvel-widgets "$@"\n`, { mode: 0o755 });
  await stage.host.stop();
  stage.host.options.push('--extension', wrapper);
  await stage.host.run();
  await stage.host.isLive(10);
  const page = await stage.open();
  writeFileSync(broken, '');
  stage.host.killExtension();
  stage.host.ask('reload');
  await page.until(() => document.querySelector('[data-id=w1]').dataset.state === 'stale');
  assert.match(await text(page, '[data-id=w1] .when'), /^since \d\d:\d\d$/);
  assert.equal(await text(page, '#lamp b'), 'Out of date');
  assert.match(await words(page, 'w1'), /97,260/);
  await page.save(process.env.BOARD_PICTURES ? join(process.env.BOARD_PICTURES, 'stale.png') : '/dev/null');
  // The document changes while nobody can read it: an old amount is not shown as if it were current.
  const document = stage.host.sample();
  document.netWorth.value = 5;
  stage.host.write(document);
  await page.until(() => !globalThis.document.querySelector('[data-id=w1] .words').textContent.includes('97,260'));
  rmSync(broken);
  await page.click('[data-id=w1] .more');
  await page.press('ArrowDown');
  await page.press('Enter');
  await until(async () => await stateOf(page, 'w1') === 'live', 'live again', 40);
  await page.close();
  stage.host.write(stage.host.sample());
});

test('a host whose extension never answered says why on each card, and a button tries again', async () => {
  const broken = join(stage.host.folder, 'broken');
  writeFileSync(broken, '');
  await stage.host.stop();
  rmSync(join(stage.host.folder, 'state'), { recursive: true, force: true });
  await stage.host.run();
  const page = await stage.browser.open(stage.host.board());
  await page.until(() => document.querySelectorAll('.card[data-state=failed]').length === 10);
  assert.ok((await text(page, '[data-id=w1] .failure p')).length > 10);
  assert.equal(await text(page, '#lamp b'), 'Failing');
  await page.save(process.env.BOARD_PICTURES ? join(process.env.BOARD_PICTURES, 'failed.png') : '/dev/null');
  rmSync(broken);
  await page.click('[data-id=w1] .failure button');
  await live(page, 10);
  await page.close();
});

test('a page says that its host has gone, and finds it again only by a new link', async () => {
  const page = await stage.open();
  assert.equal(await stage.host.stop(), 0);
  await page.until(() => document.querySelector('#lamp b').textContent === 'Not connected');
  await page.click('#hide');
  await page.until(() => document.querySelector('#toasts span')?.textContent.includes('quorvel-host board'));
  await stage.host.run();
  await stage.host.isLive(10);
  const again = await stage.open();
  assert.equal(await text(again, '#lamp b'), 'Live');
  await page.close();
  await again.close();
});

test('the host listens only while a page is wanted', async () => {
  await stage.host.stop();
  await stage.host.run();
  const ports = () => stage.host.listening();
  assert.deepEqual(ports(), []);
  stage.host.board();
  assert.equal(ports().length, 1);
  assert.equal(ports()[0].split(':')[0], '0100007F');
});

test('two hundred pages leave memory and descriptors as they were', async () => {
  const page = await stage.browser.open(null);
  const url = stage.host.board();
  const open = async () => {
    await page.go(url);
    await page.until(() => document.querySelectorAll('.card[data-state=live]').length === 10);
    await page.go('about:blank');
  };
  for (let i = 0; i < 20; ++i) await open();
  await until(() => stage.host.descriptors() < 60);
  const [memory, descriptors] = [stage.host.memory(), stage.host.descriptors()];
  for (let i = 0; i < Number(process.env.BOARD_PAGES ?? 200); ++i) await open();
  await until(() => stage.host.descriptors() <= descriptors + 1, 'descriptors are closed', 40);
  const grown = stage.host.memory() - memory;
  console.log(`200 pages: ${memory} KiB before, ${grown} KiB more after`);
  assert.ok(grown < 2048, `${grown} KiB more`);
});
