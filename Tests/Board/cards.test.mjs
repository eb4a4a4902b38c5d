// A card of the board in a real browser against a real host: its choices, its menu, its links and its end.

import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';
import { menuItem, openMenu, page, placement, stage, text } from './everyTest.mjs';
import { face, focusCard, live, said, until, words } from './scene.mjs';

test('lets a person pick a card by search', async () => {
  const cards = stage.host.sample().cards;
  await focusCard(page, 'w4');
  await page.press('e');
  await page.until(() => document.querySelectorAll('.choices input').length === 4);
  assert.match(await text('.choices'), /All, in the document’s order/);
  assert.equal(await page.run(() => document.querySelector('.choices :checked').value), '');
  await page.click('#sheetFields [type=search]');
  await page.type(cards[1].productName.slice(0, 4).toLowerCase());
  await page.until(() => document.querySelectorAll('.choices label:not([hidden])').length === 1);
  await page.press('Enter');
  assert.ok(await page.run(() => document.querySelector('#sheet').open));
  await page.click('.choices label:not([hidden])');
  await page.click('#sheet .main');
  await until(() => placement('w4').configuration.card === cards[1].id);
  await page.until(() => document.querySelector('[data-id=w4] .words').textContent.includes('10,460'));
  await page.until(() => !document.querySelector('#sheet').open);
  assert.equal((await page.focused()).card, 'w4');
});

test('picks a card by keyboard alone', async () => {
  await focusCard(page, 'w4');
  await page.press('e');
  await page.until(() => document.querySelectorAll('.choices input').length === 4);
  while ((await page.focused()).tag !== 'input' || !(await page.run(() => document.activeElement.closest('.choices')))) await page.press('Tab');
  await page.press('ArrowDown');
  await page.press('Enter');
  await until(() => placement('w4').configuration.card === stage.host.sample().cards[0].id);
});

test('shows styles as pictures', async () => {
  await focusCard(page, 'w3');
  await page.press('e');
  await page.until(() => [...document.querySelectorAll('.styles .thumb')].filter((thumb) => thumb.shadowRoot?.querySelector('svg *')).length === 2);
  const [tile, ring] = await page.run(() => [...document.querySelectorAll('.styles .thumb')].map((thumb) => thumb.shadowRoot.innerHTML));
  assert.notEqual(tile, ring);
  assert.equal(await page.run(() => document.querySelector('.styles :checked').value), 'accent');
  await page.click('.styles label:nth-child(2)');
  await page.click('#sheet .main');
  await until(() => placement('w3').configuration.style === 'ring');
});

test('changes nothing when an edit is given up', async () => {
  await openMenu('w3');
  await page.click(await menuItem('Edit'));
  await page.click('#sheetSize label[title=Medium]');
  await page.press('Escape');
  await page.until(() => !document.querySelector('#sheet').open);
  assert.equal(placement('w3').family, 'systemSmall');
  assert.equal((await page.focused()).card, 'w3');
});

test('says that a chosen card has left the document', async () => {
  const document = stage.host.sample();
  stage.host.ask('configure', 'w4', '--configure', `card=${document.cards[1].id}`);
  await page.until(() => document.querySelector('[data-id=w4] .words').textContent.includes('10,460'));
  assert.match(await text('[data-id=w4] .when'), /^\d\d:\d\d$/);
  document.cards.splice(1, 1);
  stage.host.write(document);
  await page.until(() => document.querySelector('[data-id=w4] .when').textContent === 'Card is gone');
  assert.match(await words(page, 'w4'), /The chosen card is no longer in the document/);
  await focusCard(page, 'w4');
  await page.press('e');
  await page.until(() => document.querySelector('.warn')?.textContent.includes('no longer in the document'));
});

test('opens a card’s menu in five ways and gives the focus back', async () => {
  const isOpen = () => page.run(() => document.querySelector('#menu').matches(':popover-open'));
  const ways = [() => openMenu('w2'), () => page.click(face('w2'), { button: 'right' }), () => page.press('Shift+F10'), () => page.press('ContextMenu')];
  for (const way of ways) {
    await focusCard(page, 'w2');
    await way();
    assert.ok(await isOpen(), way);
    assert.equal((await page.focused()).label.slice(0, 4), 'Edit');
    await page.press('ArrowUp');
    assert.equal((await page.focused()).label.slice(0, 6), 'Remove');
    await page.press('Escape');
    assert.ok(!await isOpen());
    assert.equal((await page.focused()).card, 'w2');
  }
  await page.click('.card[data-id=w2] .under h2');
  assert.equal(await page.run(() => document.querySelector('[aria-current=true]').dataset.id), 'w2');
  await openMenu('w2');
  await page.click({ x: 1400, y: 900 });
  assert.ok(!await isOpen());
});

test('downloads a picture as PNG and as SVG', async () => {
  const folder = join(stage.host.folder, 'downloads');
  await stage.browser.send('Browser.setDownloadBehavior', { behavior: 'allow', downloadPath: folder, browserContextId: page.context });
  for (const [form, start] of [['PNG', '\x89PNG\r\n'], ['SVG', '<svg']]) {
    await openMenu('w1');
    await page.click(await menuItem(`Download ${form}`));
    const name = await until(() => { try { return readdirSync(folder).find((file) => file === `Net Worth Large.${form.toLowerCase()}`); } catch { return undefined; } });
    assert.equal(readFileSync(join(folder, name)).toString('latin1').slice(0, start.length), start);
  }
});

test('removes with an undo, by menu and by keys', async () => {
  await openMenu('w7');
  await page.click(await menuItem('Remove'));
  await page.until(() => !document.querySelector('[data-id=w7]'));
  await until(() => !placement('w7'));
  await page.until(() => document.querySelector('#toasts span')?.textContent === 'Next Due removed.');
  await page.click('#toasts button');
  await page.until(() => document.querySelector('#said').textContent.startsWith('Next Due added'));
  await live(page, 10);
  const back = stage.host.placements().at(-1);
  assert.deepEqual([back.kind, back.family, back.board], ['QuorvelDueWidget', 'systemSmall', { column: 3, row: 2 }]);
  await focusCard(page, 'w1');
  await page.press('Delete');
  await page.until(() => !document.querySelector('[data-id=w1]'));
  await page.until(() => document.activeElement.closest('.card'));
  await page.press('Ctrl+z');
  await live(page, 10);
  assert.deepEqual(stage.host.placements().at(-1).board, { column: 0, row: 0 });
});

test('follows the widget’s link and the links inside it', async () => {
  await page.click(face('w1'));
  await until(() => stage.host.opened().length === 1);
  await focusCard(page, 'w2');
  await page.press('Enter');
  await until(() => stage.host.opened().length === 2);
  const [whole, byKey] = stage.host.opened();
  assert.equal(whole, await page.run(() => document.querySelector('[data-id=w1] .whole').getAttribute('href')));
  assert.equal(byKey, await page.run(() => document.querySelector('[data-id=w2] .whole').getAttribute('href')));
  assert.match(whole, /^quorvel-widget:\/\//);
  assert.ok(await page.run(() => location.protocol === 'http:'));
});

test('says when nothing is registered for a link', async () => {
  stage.host.program('xdg-mime', 'true');
  await page.click(face('w1'));
  await page.until(() => document.querySelector('#toasts span')?.textContent.length > 0);
  assert.match(await text('#toasts span'), /quorvel-widget/);
  stage.host.program('xdg-mime', 'echo app.desktop');
  page.problems.length = 0;  // the browser notes each refusal
});

test('opens the application to add an expense', async () => {
  const before = stage.host.opened().length;
  assert.equal(await text('#control'), 'Add Expense');
  await page.click('#control');
  await until(() => stage.host.opened().length > before);
  assert.match(stage.host.opened().at(-1), /^quorvel-widget:\/\//);
});
