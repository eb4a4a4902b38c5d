// Firefox over its own remote protocol, with the same few words as Browser in browser.mjs.

import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { connect } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { start, until } from './browser.mjs';

const kPreferences = { 'marionette.port': 0, 'browser.shell.checkDefaultBrowser': false, 'datareporting.policy.dataSubmissionEnabled': false,
  'toolkit.telemetry.enabled': false, 'app.normandy.enabled': false, 'app.update.enabled': false, 'browser.startup.page': 0, 'network.captive-portal-service.enabled': false,
  'network.connectivity-service.enabled': false, 'browser.safebrowsing.malware.enabled': false, 'browser.safebrowsing.phishing.enabled': false, 'extensions.update.enabled': false,
  'dom.disable_open_during_load': false };

export class Firefox {
  #waiting = new Map();
  #next = 1;

  static async start() {
    const browser = new Firefox();
    browser.profile = mkdtempSync(join(tmpdir(), 'board-firefox-'));
    writeFileSync(join(browser.profile, 'user.js'), Object.entries(kPreferences).map(([name, value]) => `user_pref("${name}", ${value});\n`).join(''));
    browser.process = start('firefox-esr', ['--headless', '--marionette', '--no-remote', '--profile', browser.profile],
      { stdio: 'ignore', env: { ...process.env, HOME: browser.profile, MOZ_HEADLESS: '1', DBUS_SESSION_BUS_ADDRESS: 'unix:path=/nonexistent' } });
    browser.ended = new Promise((resolve) => browser.process.once('exit', resolve));
    const port = await until(() => { try { return Number(readFileSync(join(browser.profile, 'MarionetteActivePort'), 'utf8')); } catch { return 0; } }, 'Firefox listens', 30);
    await browser.#connect(port);
    await browser.send('NewSession', { capabilities: {} });
    browser.home = (await browser.send('GetWindowHandle')).value;
    await browser.send('SetTimeouts', { script: 20000, pageLoad: 20000 });
    return browser;
  }

  /** Messages are "LENGTH:JSON"; the first greets. */
  #connect(port) {
    return new Promise((resolve, refuse) => {
      let bytes = Buffer.alloc(0);
      this.socket = connect({ host: '127.0.0.1', port });
      this.socket.once('error', refuse);
      this.socket.on('data', (more) => {
        bytes = Buffer.concat([bytes, more]);
        for (let colon; (colon = bytes.indexOf(':')) > 0 && bytes.length >= colon + 1 + Number(bytes.subarray(0, colon));) {
          const end = colon + 1 + Number(bytes.subarray(0, colon));
          const message = JSON.parse(bytes.subarray(colon + 1, end).toString());
          bytes = bytes.subarray(end);
          if (!Array.isArray(message)) { resolve(); continue; }
          const [, id, error, result] = message;
          const asked = this.#waiting.get(id);
          this.#waiting.delete(id);
          if (error) asked.refuse(new Error(error.message)); else asked.resolve(result);
        }
      });
    });
  }

  send(command, parameters = {}) {
    const id = this.#next++;
    const text = JSON.stringify([0, id, `WebDriver:${command}`, parameters]);
    this.socket.write(`${Buffer.byteLength(text)}:${text}`);
    return new Promise((resolve, refuse) => this.#waiting.set(id, { resolve, refuse }));
  }

  async open(url) {
    await this.send('SwitchToWindow', { handle: this.home });
    const { handle } = await this.send('NewWindow', { type: 'tab' });
    const page = new FirefoxPage(this, handle);
    if (url) await page.go(url);
    return page;
  }

  async close() {
    this.socket.destroy();
    this.process.kill();
    await this.ended;
    rmSync(this.profile, { recursive: true, force: true, maxRetries: 20, retryDelay: 50 });
  }
}

class FirefoxPage {
  constructor(browser, handle) { Object.assign(this, { browser, handle }); }

  async send(command, parameters) {
    await this.browser.send('SwitchToWindow', { handle: this.handle, focus: true });
    return this.browser.send(command, parameters);
  }

  go(url) { return this.send('Navigate', { url }); }

  async run(work, ...values) {
    const script = `const done = arguments[arguments.length - 1];
      Promise.resolve().then(() => (${work})(...arguments[0])).then((value) => done({ value }), (error) => done({ error: String(error) }));`;
    const { value: { value, error } } = await this.send('ExecuteAsyncScript', { script, args: [values], newSandbox: true });
    if (error) throw new Error(error);
    return value;
  }

  until(work, ...values) { return until(() => this.run(work, ...values), `${work}`); }

  async close() {
    await this.send('CloseWindow', {});
  }
}
