// Chromium over its debugging pipe: nothing to install, and no port that another program could speak to.
//
//     const browser = await Browser.start();
//     const page = await browser.open(url, { width: 1440, height: 1000 });
//     await page.press('Shift+F10');
//     await browser.close();

import { spawn } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';

const kSwitches = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
  '--disable-component-update', '--disable-sync', '--disable-renderer-backgrounding', '--disable-backgrounding-occluded-windows', '--hide-scrollbars', '--force-color-profile=srgb', '--font-render-hinting=none'];

/** Asks again until the answer is truthy; nothing sleeps for a guessed time. */
export async function until(ask, what, seconds = 10) {
  for (const end = Date.now() + seconds * 1000; ;) {
    const answer = await ask();
    if (answer) return answer;
    if (Date.now() > end) throw new Error(`not within ${seconds} s: ${what ?? ask}`);
    await new Promise((resume) => setTimeout(resume, 10));
  }
}

const started = new Set();
process.on('exit', () => { for (const child of started) child.kill('SIGKILL'); });

/** A program that does not outlive the tests, however they end. */
export function start(...words) {
  const child = spawn(...words);
  started.add(child);
  child.once('exit', () => started.delete(child));
  return child;
}

export class Browser {
  #waiting = new Map();
  #listeners = new Set();
  #next = 1;

  static async start(more = []) {
    const browser = new Browser();
    browser.profile = mkdtempSync(join(tmpdir(), 'board-browser-'));
    browser.process = start('chromium', [...kSwitches, ...more, '--remote-debugging-pipe', `--user-data-dir=${browser.profile}`],
      { stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'], env: { ...process.env, HOME: browser.profile, DBUS_SESSION_BUS_ADDRESS: 'unix:path=/nonexistent' } });
    browser.ended = new Promise((resolve) => browser.process.once('exit', resolve));
    browser.#read();
    await browser.send('Target.setDiscoverTargets', { discover: true });
    return browser;
  }

  #read() {
    let chunks = [];
    this.process.stdio[3].on('error', () => {});
    this.process.stdio[4].on('data', (bytes) => {
      for (let from = 0; ;) {
        const end = bytes.indexOf(0, from);
        if (end < 0) { chunks.push(bytes.subarray(from)); return; }
        this.#take(JSON.parse(Buffer.concat([...chunks, bytes.subarray(from, end)]).toString()));
        [chunks, from] = [[], end + 1];
      }
    });
    this.ended.then(() => { for (const { refuse } of this.#waiting.values()) refuse(new Error('the browser has ended')); });
  }

  #take(message) {
    const asked = this.#waiting.get(message.id);
    this.#waiting.delete(message.id);
    if (message.error) asked?.refuse(new Error(`${asked.method}: ${message.error.message}`));
    else if (asked) asked.resolve(message.result);
    else for (const listener of this.#listeners) listener(message);
  }

  send(method, params = {}, sessionId = undefined) {
    const id = this.#next++;
    this.process.stdio[3].write(`${JSON.stringify({ id, method, params, sessionId })}\0`);
    return new Promise((resolve, refuse) => this.#waiting.set(id, { resolve, refuse, method }));
  }

  on(listener) { this.#listeners.add(listener); return () => this.#listeners.delete(listener); }

  /** A tab with storage of its own. */
  async open(url, view = {}) {
    const { browserContextId } = await this.send('Target.createBrowserContext', { disposeOnDetach: true });
    const { targetId } = await this.send('Target.createTarget', { url: 'about:blank', browserContextId });
    const { sessionId } = await this.send('Target.attachToTarget', { targetId, flatten: true });
    const page = new Page(this, sessionId, targetId, browserContextId);
    await page.begin(view);
    if (url) await page.go(url);
    return page;
  }

  async close() {
    this.send('Browser.close').catch(() => {});
    const killer = setTimeout(() => this.process.kill('SIGKILL'), 3000);
    await this.ended;
    clearTimeout(killer);
    rmSync(this.profile, { recursive: true, force: true, maxRetries: 20, retryDelay: 50 });
  }
}

const kModifiers = { Alt: 1, Ctrl: 2, Meta: 4, Shift: 8 };
/** Windows' numbers of keys; letters and digits have those of their capitals. */
const kCodes = { Enter: 13, Escape: 27, Tab: 9, ' ': 32, Delete: 46, F6: 117, F10: 121, ContextMenu: 93, Home: 36, End: 35,
  ArrowLeft: 37, ArrowUp: 38, ArrowRight: 39, ArrowDown: 40, Backspace: 8 };
const kTexts = { Enter: '\r', ' ': ' ' };

export class Page {
  /** What went wrong on the page: errors, refused requests, violations of its policy. */
  problems = [];

  constructor(browser, session, target, context) { Object.assign(this, { browser, session, target, context }); }

  send(method, params = {}) { return this.browser.send(method, params, this.session); }

  async begin({ width = 1440, height = 1000, scale = 1, dark = false, forced = false, reduced = true, touch = false } = {}) {
    this.stop = this.browser.on((message) => message.sessionId === this.session && this.#hear(message));
    for (const domain of ['Page', 'Runtime', 'Network', 'Log', 'Accessibility']) await this.send(`${domain}.enable`);
    await this.resize(width, height, scale);
    await this.prefer({ dark, forced, reduced });
    if (touch) await this.send('Emulation.setTouchEmulationEnabled', { enabled: true });
  }

  #hear({ method, params }) {
    if (method === 'Runtime.exceptionThrown') this.problems.push(params.exceptionDetails.exception?.description ?? params.exceptionDetails.text);
    if (method === 'Log.entryAdded' && params.entry.level === 'error') this.problems.push(`${params.entry.text} ${params.entry.url ?? ''}`);
    if (method === 'Network.requestWillBeSent') this.requests?.push(params.request.url);
    if (method === 'Page.javascriptDialogOpening') this.problems.push(`dialog: ${params.message}`);
  }

  resize(width, height, scale = 1) {
    this.size = { width, height };
    return this.send('Emulation.setDeviceMetricsOverride', { width, height, deviceScaleFactor: scale, mobile: false });
  }

  prefer({ dark = false, forced = false, reduced = true } = {}) {
    return this.send('Emulation.setEmulatedMedia', { features: [
      { name: 'prefers-color-scheme', value: dark ? 'dark' : 'light' }, { name: 'forced-colors', value: forced ? 'active' : 'none' },
      { name: 'prefers-reduced-motion', value: reduced ? 'reduce' : 'no-preference' }] });
  }

  async go(url) {
    const loaded = new Promise((resolve) => {
      const stop = this.browser.on(({ sessionId, method }) => { if (sessionId === this.session && method === 'Page.loadEventFired') { stop(); resolve(); } });
    });
    const { errorText } = await this.send('Page.navigate', { url });
    if (errorText) throw new Error(`${url}: ${errorText}`);
    await loaded;
  }

  /** Runs a function in the page; its arguments and its result travel as JSON. */
  async run(work, ...values) {
    const { result, exceptionDetails } = await this.send('Runtime.evaluate', {
      expression: `(${work})(...${JSON.stringify(values)})`, awaitPromise: true, returnByValue: true, userGesture: true });
    if (exceptionDetails) throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
    return result.value;
  }

  until(work, ...values) { return until(() => this.run(work, ...values), `${work} ${JSON.stringify(values)}`); }

  /** The middle of what a selector names, in the window; what lies outside is scrolled to. */
  async middle(selector) {
    await this.until((name) => document.querySelector(name), selector);
    return this.run((name) => {
      const element = document.querySelector(name);
      element.scrollIntoView({ block: 'nearest', inline: 'nearest' });
      const box = element.getBoundingClientRect();
      return { x: box.x + box.width / 2, y: box.y + box.height / 2 };
    }, selector);
  }

  mouse(type, { x, y }, more = {}) { return this.send('Input.dispatchMouseEvent', { type, x, y, button: 'left', clickCount: 1, buttons: type === 'mouseReleased' ? 0 : 1, ...more }); }

  async click(at, more = {}) {
    const point = typeof at === 'string' ? await this.middle(at) : at;
    await this.mouse('mouseMoved', point, { button: 'none', buttons: 0 });
    await this.mouse('mousePressed', point, more);
    await this.mouse('mouseReleased', point, { ...more, buttons: 0 });
  }

  async drag(from, to, { drop = true } = {}) {
    await this.mouse('mouseMoved', from, { button: 'none', buttons: 0 });
    await this.mouse('mousePressed', from);
    for (let step = 1; step <= 8; ++step) await this.mouse('mouseMoved', { x: from.x + (to.x - from.x) * step / 8, y: from.y + (to.y - from.y) * step / 8 });
    if (drop) await this.mouse('mouseReleased', to);
  }

  /** Presses a key as named by KeyboardEvent.key, after modifiers: 'Shift+F10', 'Ctrl+z', '/'. */
  async press(combination) {
    const parts = combination === '+' ? ['+'] : combination.split('+');
    const key = parts.pop();
    const modifiers = parts.reduce((sum, name) => sum + kModifiers[name], 0);
    const isCharacter = key.length === 1;
    const windowsVirtualKeyCode = kCodes[key] ?? (/^[a-z0-9]$/i.test(key) ? key.toUpperCase().charCodeAt(0) : 0);
    const text = modifiers & ~kModifiers.Shift ? undefined : kTexts[key] ?? (isCharacter ? key : undefined);
    await this.send('Input.dispatchKeyEvent', { type: text ? 'keyDown' : 'rawKeyDown', key, modifiers, windowsVirtualKeyCode, text });
    await this.send('Input.dispatchKeyEvent', { type: 'keyUp', key, modifiers, windowsVirtualKeyCode });
  }

  async type(text) { for (const character of text) await this.press(character); }

  /** What has the focus, as a person would name it. */
  focused() {
    return this.run(() => {
      const element = document.activeElement;
      const card = element.closest('.card');
      return { tag: element.localName, id: element.id, label: element.getAttribute('aria-label') ?? element.textContent.trim(), card: card?.dataset.id };
    });
  }

  async picture(clip) {
    const { data } = await this.send('Page.captureScreenshot', { format: 'png', captureBeyondViewport: false, ...(clip && { clip: { scale: 1, ...clip } }) });
    return Buffer.from(data, 'base64');
  }

  async save(file, clip) { writeFileSync(file, await this.picture(clip)); }

  /** The accessibility tree as [role, name] pairs of what is not ignored. */
  async spoken() {
    const { nodes } = await this.send('Accessibility.getFullAXTree');
    return nodes.filter(({ ignored }) => !ignored).map(({ role, name, properties }) => ({ role: role?.value, name: name?.value ?? '',
      ...Object.fromEntries((properties ?? []).map((property) => [property.name, property.value.value])) }));
  }

  async close() {
    this.stop();
    await this.browser.send('Target.disposeBrowserContext', { browserContextId: this.context });
  }
}
