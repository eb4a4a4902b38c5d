// A hostile page on another port, and a hostile network: what each tries, and what it gets. The table is in docs/board.md.

import assert from 'node:assert/strict';
import { createServer, request } from 'node:http';
import { connect } from 'node:net';
import { after, before, test } from 'node:test';
import { Firefox } from './firefox.mjs';
import { scene, until } from './scene.mjs';

let stage;
let board;
let hostile;
let browsers;
before(async () => {
  stage = await scene();
  browsers = { Chromium: stage.browser, Firefox: await Firefox.start() };
  board = new URL(stage.host.board());
  // What it serves, and what it was asked for.
  hostile = createServer((asked, answer) => {
    hostile.requests.push({ url: asked.url, headers: asked.headers });
    answer.writeHead(200, { 'Content-Type': 'text/html' });
    answer.end('<!doctype html><title>Hostile</title><body>');
  });
  hostile.requests = [];
  await new Promise((resolve) => hostile.listen(0, '127.0.0.1', resolve));
  hostile.origin = `http://localhost:${hostile.address().port}`;
});
after(async () => { hostile.close(); await browsers.Firefox.close(); await stage.end(); });

/** A page of the hostile server's, in a browser that has the board open in another tab. */
async function attack(browser, work, ...values) {
  const victim = await browser.open(board.href);
  await victim.until(() => document.querySelectorAll('.card[data-state=live]').length === 10);
  const page = await browser.open(hostile.origin);
  try { return await page.run(work, ...values); } finally { await page.close(); await victim.close(); }
}
const token = () => board.hash.slice(1);
const isHidden = () => stage.host.ask('status').startsWith('amounts are hidden');

for (const name of ['Chromium', 'Firefox']) {
  test(`${name}: another page reads nothing by fetch, with or without the token`, async () => {
    const outcomes = await attack(browsers[name], async (origin, secret) => {
      const outcome = (path, options) => fetch(origin + path, options).then((response) => `${response.type} ${response.status}`, (error) => error.name);
      return Promise.all([
        outcome('/state'), outcome('/'), outcome('/board.js'), outcome('/state', { credentials: 'include' }),
        outcome('/state', { headers: { Authorization: `Bearer ${secret}` } }), outcome('/widget/w1', { headers: { Authorization: `Bearer ${secret}` } }),
        outcome('/', { mode: 'no-cors' }), outcome('/state', { mode: 'no-cors' })]);
    }, board.origin, token());
    assert.deepEqual(outcomes, Array(8).fill('TypeError'));
  });

  test(`${name}: another page changes nothing, whatever it posts`, async () => {
    await attack(browsers[name], async (origin, secret) => {
      const body = '{"hidden":true}';
      const send = (options) => fetch(`${origin}/hide`, { method: 'POST', body, ...options }).catch(() => {});
      await Promise.all([send({}), send({ mode: 'no-cors' }), send({ mode: 'no-cors', headers: { 'Content-Type': 'text/plain' } }),
        send({ headers: { 'Content-Type': 'application/json', Authorization: `Bearer ${secret}` } })]);
      navigator.sendBeacon(`${origin}/hide`, new Blob([body], { type: 'text/plain' }));
      await new Promise((resume) => {
        const frame = document.createElement('iframe');
        frame.name = 'sink';
        document.body.append(frame);
        const form = Object.assign(document.createElement('form'), { method: 'POST', action: `${origin}/hide`, target: 'sink', enctype: 'text/plain' });
        form.append(Object.assign(document.createElement('input'), { name: '{"hidden":true,"x":"', value: '"}' }));
        document.body.append(form);
        frame.onload = resume;
        form.submit();
        setTimeout(resume, 2000);
      });
    }, board.origin, token());
    assert.ok(!isHidden());
  });

  test(`${name}: another page shows nothing of the board as an image, a script, a style or a frame`, async () => {
    const outcomes = await attack(browsers[name], async (origin) => {
      const load = (name, properties) => new Promise((resolve) => {
        const element = Object.assign(document.createElement(name), properties);
        element.onload = () => resolve(name === 'iframe' ? (element.contentDocument ? 'own' : 'foreign') : 'loaded');
        element.onerror = () => resolve('refused');
        document.body.append(element);
      });
      return Promise.all([load('img', { src: `${origin}/icon.svg` }), load('img', { src: `${origin}/widget/w1.png` }), load('img', { src: `${origin}/widget/w1.svg` }),
        load('script', { src: `${origin}/dom.js`, type: 'module' }), load('script', { src: `${origin}/dom.js` }),
        load('link', { rel: 'stylesheet', href: `${origin}/board.css` }), load('iframe', { src: origin }), load('object', { data: origin })]);
    }, board.origin);
    // A frame loads the browser's own error page, which nobody can read either.
    assert.deepEqual(outcomes.slice(0, 6), Array(6).fill('refused'));
    assert.equal(outcomes[6], 'foreign');
    const frames = await attack(browsers[name], async (origin) => {
      const frame = Object.assign(document.createElement('iframe'), { src: origin });
      document.body.append(frame);
      await new Promise((resume) => { frame.onload = resume; });
      try { return frame.contentWindow.location.href; } catch { return 'unreadable'; }
    }, board.origin);
    assert.equal(frames, 'unreadable');
  });

  test(`${name}: another page hears no events`, async () => {
    const outcomes = await attack(browsers[name], async (origin, secret) => Promise.all([
      new Promise((resolve) => { const source = new EventSource(`${origin}/events`); source.onopen = () => resolve('open'); source.onerror = () => resolve('refused'); }),
      fetch(`${origin}/events`, { headers: { Authorization: `Bearer ${secret}` } }).then(() => 'open', () => 'refused'),
      new Promise((resolve) => { const socket = new WebSocket(`${origin.replace('http', 'ws')}/events`); socket.onopen = () => resolve('open'); socket.onerror = () => resolve('refused'); })]),
    board.origin, token());
    assert.deepEqual(outcomes, ['refused', 'refused', 'refused']);
  });

  test(`${name}: a window that another page opens is a stranger to it`, async () => {
    const reached = await attack(browsers[name], async (origin) => {
      const opened = window.open(origin);
      // First the window is an empty page of this one; then it is closed to it, or refuses to be looked at.
      for (const end = Date.now() + 10_000; Date.now() < end;) {
        if (opened.closed) return 'a stranger';
        try {
          if (opened.document.documentElement.textContent.trim()) return 'read';
        } catch { return 'a stranger'; }
        await new Promise((resume) => setTimeout(resume, 10));
      }
      return 'never there';
    }, board.origin);
    assert.equal(reached, 'a stranger');
  });

  test(`${name}: a page with an old token learns nothing and says so`, async () => {
    const page = await browsers[name].open(`${board.origin}/#${'0'.repeat(32)}`);
    await page.until(() => document.querySelector('#lamp b').textContent === 'Not connected');
    assert.equal(await page.run(() => document.querySelectorAll('.card').length), 0);
    await page.close();
  });
}

test('a name that is rebound to this machine is refused', async () => {
  const rebound = await stage.browser.send('Target.createBrowserContext');
  const ask = (headers, path = '/state') => new Promise((resolve, refuse) => {
    request({ host: '127.0.0.1', port: board.port, path, headers, setHost: false, agent: false }, (answer) => { answer.resume(); resolve(answer.statusCode); }).on('error', refuse).end();
  });
  const bearer = { Authorization: `Bearer ${token()}` };
  for (const host of ['evil.example', `evil.example:${board.port}`, `localhost:${board.port}`, `127.0.0.1:${board.port}`, `x.${board.host}`, `${board.hostname}:80`]) {
    assert.equal(await ask({ Host: host, ...bearer }), 421, host);
    assert.equal(await ask({ Host: host }, '/'), 421, host);
  }
  assert.equal(await ask({ Host: board.host, ...bearer }), 200);
  await stage.browser.send('Target.disposeBrowserContext', rebound);
});

test('other servers of this machine get neither token nor cookie', async () => {
  const page = await stage.open();
  assert.equal(await page.run(() => document.cookie), '');
  assert.equal(await page.run(() => location.href.includes('#')), false);
  assert.equal(await page.run(() => Object.keys(localStorage).length), 0);
  hostile.requests.length = 0;
  const { targetInfos } = await stage.browser.send('Target.getTargets');
  assert.ok(!targetInfos.some(({ url }) => url.includes(token())));
  // The person follows a link from the board's tab to the hostile server, in the same tab.
  await page.go(hostile.origin);
  const sent = JSON.stringify(hostile.requests);
  assert.ok(!sent.includes(token()));
  assert.ok(!/cookie|referer/i.test(sent), sent);
  assert.equal(await page.run(() => sessionStorage.length), 0);
  await page.close();
});

test('the page asks nobody but its host', async () => {
  const page = await stage.browser.open(null);
  page.requests = [];
  await page.go(board.href);
  await page.until(() => document.querySelectorAll('.card[data-state=live]').length === 10);
  await page.press('/');
  const foreign = page.requests.filter((url) => new URL(url).origin !== board.origin && !url.startsWith('data:'));
  assert.deepEqual(foreign, []);
  await page.close();
});

test('nothing of a document becomes markup', async () => {
  const document = stage.host.sample();
  const nasty = ['<img src=x onerror=alert(1)>', '</svg><script>alert(2)</script>', '"onmouseover="alert(3)', '\u202Eevil\u2066', '👩‍👩‍👧‍👦🏳️‍🌈', 'javascript:alert(4)', '&#x3C;b&#x3E;', 'x'.repeat(16384)];
  document.cards = nasty.map((name, i) => ({ ...document.cards[0], id: `${nasty[i].slice(0, 40)}${i}`, bankName: name, productName: name }));
  document.dues = nasty.map((name, i) => ({ ...document.dues[0], id: `due${i}`, name, subtitle: name }));
  const page = await stage.open();
  stage.host.write(document);
  await page.until(() => document.querySelector('[data-id=w5] .words').textContent.includes('<img'));
  await page.run(() => document.querySelector('.card[data-id=w4] .more').focus());
  await page.press('e');
  await page.until(() => document.querySelectorAll('.choices label').length >= 8);
  assert.ok(await page.run(() => document.documentElement.scrollWidth <= innerWidth && document.querySelector('#sheet').scrollWidth <= document.querySelector('#sheet').clientWidth + 1));
  assert.equal(await page.run(() => document.querySelectorAll('script').length), 1);
  assert.equal(await page.run(() => [...document.querySelectorAll('.picture')].flatMap((picture) => [...picture.shadowRoot.querySelectorAll('script, foreignObject, a, [onload], [onerror], [href^="javascript"]')]).length), 0);
  assert.deepEqual(page.problems, []);
  await page.close();
  stage.host.write(stage.host.sample());
});

test('sixty half-open connections and a slow head keep nobody out for long', async () => {
  const sockets = [...Array(60)].map(() => connect({ host: '127.0.0.1', port: board.port }));
  for (const socket of sockets) { socket.on('error', () => {}); socket.write('GET / HTTP/1.1\r\nHost:'); }
  const begin = Date.now();
  const page = await stage.open();
  assert.ok(Date.now() - begin < 4000);
  await until(() => sockets.every(({ readyState, destroyed }) => destroyed || readyState !== 'open'), 'all are closed', 12);
  await page.close();
});

test('what is hidden is not sent', async () => {
  stage.host.ask('hide', 'on');
  const ask = (path) => new Promise((resolve, refuse) => {
    request({ host: '127.0.0.1', port: board.port, path, headers: { Host: board.host, Authorization: `Bearer ${token()}` }, agent: false }, (answer) => {
      let text = '';
      answer.on('data', (part) => { text += part; });
      answer.on('end', () => resolve(text));
    }).on('error', refuse).end();
  });
  for (const path of ['/state', ...[...Array(10).keys()].flatMap((i) => [`/widget/w${i + 1}?privacy=off`, `/widget/w${i + 1}?privacy=off&mode=vibrant`, `/widget/w${i + 1}.svg`]),
    '/preview?kind=QuorvelNetWorthWidget&family=systemMedium']) {
    const text = await ask(path);
    assert.ok(text.length > 100, path);
    assert.ok(!/\$\d|97,?260|1,?363|25,?730|8,?320/.test(text), path);
  }
  stage.host.ask('hide', 'off');
});
