// The controls above the canvas. They change this page's pictures alone: placed widgets keep the wall clock.

import { changed, changes, defaults, set, settings } from './settings.js';
import { icon, make } from './dom.js';

const tools = document.getElementById('tools');

/** Choices as radio buttons: [value, text or icon's name, spoken name]. */
const segments = (name, title, choices) => {
  const radios = choices.map(([value, text, spoken]) => make('label', { title: spoken },
    make('input', { type: 'radio', name, value, 'aria-label': spoken, onchange: () => set({ [name]: value }) }), spoken ? icon(text) : text));
  return make('fieldset', { class: 'field', 'data-setting': name }, make('legend', {}, title), make('span', { class: 'segments' }, ...radios));
};

const select = (name, title, choices) => make('label', { class: 'field', 'data-setting': name }, make('span', { class: 'name' }, title),
  make('select', { name, onchange: (event) => set({ [name]: event.target.value }) }, ...choices.map(([value, text]) => make('option', { value }, text))));

/** What a clock on the wall of the zone shows, "YYYY-MM-DDTHH:MM:SS"; Swedish dates have that form. */
const readingOf = (zone, time) => new Intl.DateTimeFormat('sv-SE', { timeZone: zone, dateStyle: 'short', timeStyle: 'medium' }).format(time).replace(' ', 'T');
/** Milliseconds east of UTC; `time` in whole seconds. */
const offsetAt = (zone, time) => Date.parse(`${readingOf(zone, time)}Z`) - time;
const instantOf = (zone, reading) => {
  const asUtc = Date.parse(`${reading}Z`);
  return asUtc - offsetAt(zone, asUtc - offsetAt(zone, asUtc));
};
const asText = (time) => new Date(time).toISOString().replace('.000', '');

/** The next changes of the zone's clock, to the second, within two years. */
export function clockChanges(zone, from) {
  const found = [];
  const day = 86400000;
  for (let time = Math.floor(from / day) * day; time < from + 730 * day && found.length < 4; time += day) {
    if (offsetAt(zone, time) === offsetAt(zone, time + day)) continue;
    let [low, high] = [time, time + day];
    while (high - low > 1000) {
      const middle = Math.floor((low + high) / 2000) * 1000;
      if (offsetAt(zone, middle) === offsetAt(zone, time)) low = middle; else high = middle;
    }
    found.push(high);
  }
  return found;
}

let running;
const stop = () => { clearInterval(running); };
/** Lets the clock run from `from` for some seconds, so that an entry is seen to change. */
function run(from, seconds) {
  stop();
  let at = from;
  set({ now: asText(at) });
  running = setInterval(() => {
    at += 1000;
    set({ now: asText(at) });
    if (at >= from + seconds * 1000) stop();
  }, 1000);
}

function clock(zone) {
  const present = () => (settings.now ? Date.parse(settings.now) : Math.floor(Date.now() / 1000) * 1000);
  const exact = make('input', { type: 'datetime-local', step: 1, 'aria-label': 'Time shown', onchange: () => { stop(); if (exact.value) set({ now: asText(instantOf(zone, exact.value.padEnd(19, ':00'))) }); } });
  const jump = make('select', { 'aria-label': 'Moments', onchange: () => {
    const [kind, value] = jump.value.split(' ');
    stop();
    jump.value = '';
    if (kind === 'now') set({ now: '' });
    if (kind === 'midnight') run(instantOf(zone, `${readingOf(zone, present()).slice(0, 10)}T23:59:58`), 8);
    if (kind === 'change') run(Number(value) - 2000, 8);
  } });
  const show = () => {
    exact.value = readingOf(zone, present());
    const zoneChanges = clockChanges(zone, Date.now()).map((time) => make('option', { value: `change ${time}` }, `Clock change ${readingOf(zone, time).slice(0, 10)}`));
    jump.replaceChildren(make('option', { value: '' }, settings.now ? 'Set' : 'Now'), make('option', { value: 'now' }, 'Now'), make('option', { value: 'midnight' }, 'Over midnight'), ...zoneChanges);
    jump.value = '';
  };
  show();
  changes.addEventListener('change', () => { exact.value = readingOf(zone, present()); jump.options[0].textContent = settings.now ? 'Set' : 'Now'; });
  return make('div', { class: 'field', role: 'group', 'aria-label': `Clock, ${zone}`, 'data-setting': 'now' }, make('span', { class: 'name' }, `Clock · ${zone}`), make('span', { class: 'clock' }, jump, exact));
}

export function build(zone) {
  const tint = make('label', { class: 'field', 'data-setting': 'tint' }, make('span', { class: 'name' }, 'Tint'),
    make('input', { type: 'color', name: 'tint', oninput: (event) => set({ tint: event.target.value.slice(1) }) }));
  const count = make('span', { class: 'count' });
  const reset = make('button', { onclick: () => { stop(); set({ ...defaults }); } }, 'Reset', count);
  tools.replaceChildren(
    segments('appearance', 'Appearance', [['light', 'light', 'Light'], ['dark', 'dark', 'Dark'], ['system', 'system', 'As the system']]),
    segments('mode', 'Rendering', [['fullColor', 'Full colour'], ['accented', 'Accented'], ['vibrant', 'Vibrant']]), tint,
    segments('background', 'Background', [['1', 'Shown'], ['0', 'Removed']]),
    segments('privacy', 'Amounts', [['off', 'Shown'], ['hidden', 'Hidden']]),
    select('preset', 'Preset', [['standard', 'Standard 170'], ['compact', 'Compact 158'], ['stress', 'Narrow 141']]),
    clock(zone), make('span', { class: 'stretch' }), reset);
  const show = () => {
    for (const field of tools.querySelectorAll('[data-setting]')) field.classList.toggle('changed', changed().includes(field.dataset.setting));
    for (const input of tools.querySelectorAll('input[type=radio]')) input.checked = settings[input.name] === input.value;
    tools.elements.preset.value = settings.preset;
    tools.elements.tint.value = `#${settings.tint || '3478f6'}`;
    tools.elements.tint.disabled = settings.mode !== 'accented';
    count.textContent = changed().length;
    reset.hidden = !changed().length;
  };
  changes.addEventListener('change', show);
  tools.addEventListener('submit', (event) => event.preventDefault());
  show();
}
