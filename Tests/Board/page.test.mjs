// The board as a person uses it, by mouse and by keyboard, in a real browser against a real host: what it shows and where.

import assert from 'node:assert/strict';
import { join } from 'node:path';
import { test } from 'node:test';
import { menuItem, openMenu, page, placement, stage, text } from './everyTest.mjs';
import { cellOf, face, focusCard, kTen, live, pictureOf, pointIn, said, until, words } from './scene.mjs';

test('shows every widget at its place with its name and time', async () => {
  assert.equal(await text('#lamp b'), 'Live');
  assert.equal(await text('#container'), join(stage.host.folder, 'container'));
  for (const { id, board } of kTen) assert.deepEqual(await cellOf(page, id), [board.column, board.row], id);
  assert.equal(await text('[data-id=w1] h2'), 'Net Worth');
  assert.match(await text('[data-id=w1] .when'), /^as of \d\d:\d\d$/);
  assert.match(await text('[data-id=w3] .when'), /^\d\d:\d\d$/);
  const size = await page.run(() => { const { width, height } = document.querySelector('[data-id=w1] .face').getBoundingClientRect(); return [width, height]; });
  assert.deepEqual(size, [364, 382]);
});

test('previews every widget in the gallery and finds it by words', async () => {
  const { widgets } = JSON.parse(stage.host.ask('list', '--json'));
  await page.until((count) => [...document.querySelectorAll('.thumb')].filter((thumb) => thumb.shadowRoot?.querySelector('svg *')).length === count, widgets.length);
  await page.press('/');
  await page.type('limit');
  assert.deepEqual(await page.run(() => [...document.querySelectorAll('.offer:not([hidden]) b')].map((name) => name.textContent)), ['Remaining Limit']);
  await page.type('zzz');
  assert.match(await page.run(() => document.querySelector('#noOffer').hidden ? '' : document.querySelector('#noOffer').textContent), /No widget/);
  await page.press('Escape');
  assert.equal((await page.focused()).tag, 'body');
});

test('adds a widget in the chosen size by mouse', async () => {
  await page.click('.offer:nth-child(3) > button');
  await page.until(() => document.querySelector('.offer[data-open] .preview div').shadowRoot?.querySelector('svg *'));
  await page.click('.offer[data-open] label[title=Medium]');
  await page.click('.offer[data-open] .main');
  await live(page, 11);
  const added = stage.host.placements().at(-1);
  assert.equal(added.kind, 'QuorvelNetWorthWidget');
  assert.equal(added.family, 'systemMedium');
  assert.equal((await page.focused()).card, added.id);
  assert.match(await said(page), /^Net Worth added, column \d, row \d$/);
});

test('adds a widget by keyboard alone', async () => {
  await page.press('/');
  await page.type('safe');
  await page.press('Tab');
  await page.press('Enter');
  await page.press('Tab');
  await page.press('ArrowRight');
  await page.press('Tab');
  assert.equal((await page.focused()).label, 'Add Safe to Spend');
  await page.press('Enter');
  await live(page, 11);
  assert.equal(stage.host.placements().at(-1).family, 'systemMedium');
});

test('adds a widget where it is dropped, and others make room', async () => {
  await page.click('.offer:nth-child(2) > button');
  await page.until(() => document.querySelector('.offer[data-open] .preview div').shadowRoot?.querySelector('svg *'));
  await page.drag(await page.middle('.offer[data-open] .preview'), await pointIn(page, 2, 1));
  await live(page, 11);
  const added = stage.host.placements().at(-1);
  assert.deepEqual(await cellOf(page, added.id), [2, 1]);
  assert.notDeepEqual(await cellOf(page, 'w3'), [2, 1]);
  await until(() => placement(added.id)?.board.column === 2 && placement(added.id).board.row === 1);
});

test('moves a card by mouse, follows no link by it, and puts it back on Escape', async () => {
  const from = await page.middle(face('w3'));
  await page.drag(from, await pointIn(page, 4, 1), { drop: false });
  assert.ok(await page.run(() => document.querySelector('.target')));
  await page.press('Escape');
  assert.deepEqual(await cellOf(page, 'w3'), [2, 1]);
  await page.mouse('mouseReleased', from);
  await page.drag(from, await pointIn(page, 4, 1));
  await page.until(() => document.querySelector('[data-id=w3]').style.getPropertyValue('--x') === '776');
  await until(() => placement('w3').board.column === 4 && placement('w3').board.row === 1);
  assert.deepEqual(stage.host.opened(), []);
});

test('makes room for a card that is dropped on others', async () => {
  await page.drag(await page.middle(face('w4')), await pointIn(page, 0, 0));
  await until(() => placement('w4').board.column === 0 && placement('w4').board.row === 0);
  await until(() => placement('w1').board.row === 3);
  for (const { id, board } of kTen) if (!['w1', 'w4'].includes(id)) assert.deepEqual(placement(id).board, board, id);
  const cells = stage.host.placements().map(({ board }) => `${board.column},${board.row}`);
  assert.equal(new Set(cells).size, cells.length);
});

test('moves a card by keyboard and says where it goes', async () => {
  await focusCard(page, 'w9');
  await page.press('m');
  assert.match(await said(page), /^Moving Spending This Month, column 3, row 4/);
  await page.press('ArrowRight');
  assert.equal(await said(page), 'Spending This Month, column 4, row 4');
  await page.press('ArrowDown');
  await page.press('Enter');
  assert.deepEqual(await cellOf(page, 'w9'), [3, 4]);
  await until(() => placement('w9').board.column === 3 && placement('w9').board.row === 4);
  assert.equal((await page.focused()).card, 'w9');
  await page.press('m');
  await page.press('ArrowUp');
  await page.press('ArrowUp');
  await page.press('Escape');
  assert.deepEqual(await cellOf(page, 'w9'), [3, 4]);
  assert.match(await said(page), /stays where it was/);
});

test('resizes by key and by menu', async () => {
  await focusCard(page, 'w9');
  await page.press('2');
  await until(() => placement('w9').family === 'systemMedium');
  await page.until(() => document.querySelector('[data-id=w9] .face').offsetWidth === 364);
  await openMenu('w9');
  assert.equal(await page.run(() => document.querySelector('#menu [aria-checked=true]').textContent.slice(0, 6)), 'Medium');
  await page.click(await menuItem('Small'));
  await until(() => placement('w9').family === 'systemSmall');
  // Before that, the page still has to move the focus to the card that became smaller.
  await page.until(() => document.querySelector('[data-id=w9] .face').offsetWidth === 170);
  await focusCard(page, 'w3');
  await page.press('3');
  await page.until(() => document.querySelector('#said').textContent === 'Safe to Spend has no such size.');
});

test('hides amounts everywhere at once, previews too', async () => {
  const other = await stage.open();
  await page.until(() => [...document.querySelectorAll('.thumb')].every((thumb) => thumb.shadowRoot?.querySelector('svg *')));
  const open = await pictureOf(page, 'w1');
  const preview = () => page.run(() => document.querySelector('.offer:nth-child(3) .thumb').shadowRoot.innerHTML);
  const before = await preview();
  assert.match(await words(page, 'w1'), /97,260/);
  await page.press('h');
  for (const one of [page, other]) {
    await one.until(() => document.querySelectorAll('.card').length === 10 && [...document.querySelectorAll('.words')].every((spoken) => !/\$\d/.test(spoken.textContent)));
    assert.equal(await one.run(() => document.querySelector('#hide').ariaPressed), 'true');
  }
  assert.notEqual(await pictureOf(page, 'w1'), open);
  await until(async () => await preview() !== before);
  assert.equal(await said(page), 'Amounts are hidden everywhere.');
  await other.click('#hide');
  await page.until(() => document.querySelector('[data-id=w1] .words').textContent.includes('97,260'));
  await other.close();
});

test('shows other looks without touching the placements', async () => {
  const usual = await pictureOf(page, 'w1');
  const settings = [['appearance', 'dark'], ['mode', 'vibrant'], ['mode', 'accented'], ['background', '0'], ['privacy', 'hidden'], ['privacy', 'locked']];
  const seen = new Set([usual]);
  for (const [name, value] of settings) {
    await page.click('#tools label:has(input[value=fullColor])');
    await page.click(`#tools label:has(input[name=${name}][value="${value}"])`);
    await until(async () => !seen.has(await pictureOf(page, 'w1')), `${name} ${value}`);
    seen.add(await pictureOf(page, 'w1'));
    assert.equal(await page.run((setting) => new URLSearchParams(location.search).get(setting), name), value);
    assert.ok(await page.run((setting) => document.querySelector(`[data-setting=${setting}]`).matches('.changed'), name));
  }
  assert.match(await text('#reset'), /Reset\d/);
  const url = await page.run(() => location.href);
  await page.go(url);
  await live(page, 10);
  assert.equal(await page.run(() => location.href), url);
  assert.equal(await page.run(() => document.querySelector('input[name=privacy]:checked').value), 'locked');
  await page.click('#reset');
  assert.equal(await page.run(() => location.search), '');
  await until(async () => await pictureOf(page, 'w1') === usual);
  assert.equal(JSON.parse(stage.host.ask('status', '--json')).placements.length, 10);
});

test('takes a tint and a preset', async () => {
  await page.click('#tools label:has(input[value=accented])');
  await page.until(() => !document.querySelector('[name=tint]').disabled);
  await page.run(() => { const tint = document.querySelector('[name=tint]'); tint.value = '#00aa55'; tint.dispatchEvent(new Event('input', { bubbles: true })); });
  await page.until(() => /00aa55/i.test(document.querySelector('[data-id=w1] .picture').shadowRoot.innerHTML));
  await page.run(() => { const preset = document.querySelector('[name=preset]'); preset.value = 'stress'; preset.dispatchEvent(new Event('input', { bubbles: true })); });
  await page.until(() => document.querySelector('[data-id=w3] .picture').shadowRoot.querySelector('svg').getAttribute('viewBox') === '0 0 141 141');
});

test('lets the clock pass midnight, and the placements keep theirs', async () => {
  const day = (await words(page, 'w3')).match(/(\d+) ?d/)?.[0] ?? await words(page, 'w3');
  await page.run(() => { const moments = document.querySelector('#moments'); moments.value = 'midnight'; moments.dispatchEvent(new Event('change')); });
  assert.match(await page.run(() => document.querySelector('#reading').value), /T23:59:5/);
  const shown = await words(page, 'w3');
  await page.until((before) => document.querySelector('#reading').value.includes('T00:00:0') && document.querySelector('[data-id=w3] .words').textContent !== before, shown);
  assert.match(await page.run(() => location.search), /now=\d{4}-\d\d-\d\dT2\d%3A00%3A0\dZ/);
  assert.ok(day);
  const other = await stage.open();
  assert.match(await words(other, 'w3'), new RegExp(day));
  await other.close();
});

test('lists the zone’s clock changes and goes there', async () => {
  const moments = await page.run(() => [...document.querySelectorAll('#moments option')].map((option) => option.textContent));
  assert.equal(moments.filter((moment) => /^Clock change \d{4}-(03|10)-\d\d$/.test(moment)).length, 4);
  assert.equal(await text('#zone'), 'Europe/Berlin');
  await page.run(() => { const select = document.querySelector('#moments'); select.selectedIndex = 3; select.dispatchEvent(new Event('change')); });
  const before = await page.run(() => document.querySelector('#reading').value.slice(11));
  await page.until((reading) => Math.abs(Number(document.querySelector('#reading').value.slice(11, 13)) - Number(reading.slice(0, 2))) >= 1, before);
});

test('leads through the page by F6 and from card to card by arrows', async () => {
  const regions = [];
  for (let i = 0; i < 4; ++i) {
    await page.press('F6');
    regions.push(await page.run(() => document.activeElement.closest('.bar, #tools, #gallery, #canvas').id || 'bar'));
  }
  assert.deepEqual(regions, ['bar', 'tools', 'gallery', 'canvas']);
  await page.press('Shift+F6');
  assert.equal(await page.run(() => document.activeElement.closest('aside').id), 'gallery');
  await focusCard(page, 'w1');
  const way = [];
  for (const key of ['ArrowRight', 'ArrowDown', 'ArrowRight', 'ArrowDown', 'ArrowLeft', 'ArrowLeft', 'ArrowUp']) {
    await page.press(key);
    way.push((await page.focused()).card);
  }
  assert.deepEqual(way, ['w2', 'w3', 'w4', 'w7', 'w6', 'w5', 'w1']);
});

test('has a key for everything', async () => {
  await page.press('?');
  assert.ok(await page.run(() => document.querySelector('#keys').open));
  await page.press('a');
  await page.press('Escape');
  assert.ok(!await page.run(() => document.querySelector('#keys').open));
  await page.press('a');
  assert.ok(!await page.run(() => document.querySelector('#gallery').checkVisibility()));
  await page.press('a');
  await page.press('l');
  assert.equal(await page.run(() => document.documentElement.dataset.appearance), 'dark');
  await page.press('p');
  assert.equal(await page.run(() => document.querySelector('input[name=privacy]:checked').value), 'hidden');
  await focusCard(page, 'w5');
  await page.press(' ');
  assert.equal(await page.run(() => document.querySelector('[aria-current=true]').dataset.id), 'w5');
  await page.press('Escape');
  assert.ok(!await page.run(() => document.querySelector('[aria-current=true]')));
  await page.press('r');
  await page.click('#search');
  await page.type('ahplemr12');
  assert.equal(await page.run(() => document.querySelector('#search').value), 'ahplemr12');
  assert.equal(stage.host.placements().length, 10);
});

test('follows what others do to the placements', async () => {
  stage.host.ask('remove', 'w10');
  await page.until(() => document.querySelectorAll('.card').length === 9);
  const id = stage.host.ask('add', 'due').match(/w\d+/)[0];
  await page.until((card) => document.querySelector(`[data-id=${card}]`)?.dataset.state === 'live', id);
  stage.host.ask('hide', 'on');
  await page.until(() => document.querySelector('#hide').ariaPressed === 'true');
  stage.host.ask('hide', 'off');
});

test('takes a new document within the page', async () => {
  const document = stage.host.sample();
  document.netWorth.value = 1234567;
  stage.host.write(document);
  await page.until(() => document.querySelector('[data-id=w1] .words').textContent.includes('1,234,567'));
});

test('works in one narrow column of the phone', async () => {
  await page.resize(360, 780);
  await page.until(() => document.querySelector('[data-id=w1] .face').getBoundingClientRect().width === 328);
  assert.equal(await page.run(() => document.documentElement.scrollWidth), 360);
  await page.click('.tabs button:nth-child(2)');
  await page.click('.offer:nth-child(2) > button');
  await page.click('.offer[data-open] .main');
  await live(page, 11);
  await page.until(() => document.body.dataset.panel === 'widgets');
  await page.click('.tabs button:nth-child(3)');
  await page.click('#tools label:has(input[value=dark])');
  await page.click('.tabs button:nth-child(1)');
  await page.click('.card:first-child .more');
  assert.ok(await page.run(() => document.querySelector('#menu').matches(':popover-open')));
  const small = await page.run(() => [...document.querySelectorAll('#menu button:not([hidden]), .tabs button, .bar button')].filter((button) => button.checkVisibility() && button.getBoundingClientRect().height < 44).map((button) => button.textContent));
  assert.deepEqual(small, []);
});
