// How this page shows the widgets: previews only, kept in the URL, so that a view can be bookmarked. What stands in the page's
// markup is the default, and is left out.

import { $, all, make } from './dom.js';

const form = $('#tools');
const fields = form.elements;
const values = () => Object.fromEntries(new FormData(form));
const defaults = values();
const isDark = matchMedia('(prefers-color-scheme: dark)');

/** Told after each change. */
export const onView = [];

const changed = () => Object.entries(values()).filter(([name, value]) => value !== defaults[name]);

/** The query of a picture. */
export const view = () => {
  const { appearance, tint } = values();
  const shown = appearance === 'system' ? (isDark.matches ? 'dark' : 'light') : appearance;
  return { ...Object.fromEntries(changed()), ...(tint && { tint }), appearance: shown };
};

function apply() {
  fields.tint.disabled = values().mode !== 'accented';
  const query = new URLSearchParams(changed());
  history.replaceState(null, '', query.size ? `?${query}` : location.pathname);
  for (const field of all('[data-setting]', form)) field.classList.toggle('changed', query.has(field.dataset.setting));
  $('#reset').hidden = !query.size;
  $('.count').textContent = query.size;
  Object.assign(document.documentElement.dataset, values());
  showClock();
  for (const told of onView) told();
}

export function set(chosen) {
  for (const [name, value] of Object.entries(chosen)) if (name in defaults) fields[name].value = value;
  apply();
}

/** Off, hidden, locked, and off again. */
export function nextPrivacy() {
  const choices = ['off', 'hidden', 'locked'];
  set({ privacy: choices[(choices.indexOf(values().privacy) + 1) % 3] });
}

// ---- the clock of the previews

const reading = $('#reading');
const moments = $('#moments');
let zone;
let running;

/** What a clock on the wall of the zone shows, "YYYY-MM-DDTHH:MM:SS"; Swedish dates have that form. */
const readingAt = (time) => {
  const format = new Intl.DateTimeFormat('sv-SE', { timeZone: zone, dateStyle: 'short', timeStyle: 'medium' });
  return format.format(time).replace(' ', 'T');
};
/** Milliseconds of such a reading; one that two instants share means the later of them. */
function timeOf(text) {
  const asUtc = Date.parse(`${text}Z`);
  const eastAt = (time) => Date.parse(`${readingAt(time)}Z`) - time;
  return asUtc - eastAt(asUtc - eastAt(asUtc));
}
const setTime = (time) => set({ now: new Date(time).toISOString().replace(/\.\d+/, '') });
const shownTime = () => (fields.now.value ? Date.parse(fields.now.value) : Date.now());

/** Lets the clock run for eight seconds, so that what changes is seen to change. */
function run(from) {
  clearInterval(running);
  let left = 8;
  setTime(from);
  running = setInterval(() => {
    setTime(shownTime() + 1000);
    if (!--left) clearInterval(running);
  }, 1000);
}

function showClock() {
  if (!zone) return;
  reading.value = readingAt(shownTime());
  moments.options[0].text = fields.now.value ? 'Set' : 'Now';
  moments.selectedIndex = 0;
}

moments.onchange = () => {
  const chosen = moments.value;
  if (chosen === 'midnight') run(timeOf(`${readingAt(shownTime()).slice(0, 10)}T23:59:58`));
  else if (chosen) run(Date.parse(chosen) - 2000);
  else { clearInterval(running); set({ now: '' }); }
};
reading.onchange = () => { clearInterval(running); if (reading.value) setTime(timeOf(reading.value.padEnd(19, ':00'))); };

/** @param changes when the zone's clocks are set, as date-times */
export function setZone(name, changes) {
  zone = name;
  $('#zone').textContent = name;
  const option = (value, ...words) => make('option', { value }, ...words);
  const jumps = changes.map((time) => option(time, `Clock change ${readingAt(Date.parse(time)).slice(0, 10)}`));
  moments.replaceChildren(option(''), option('', 'Now'), option('midnight', 'Over midnight'), ...jumps);
  showClock();
}

moments.append(make('option'));
$('#reset').onclick = () => { clearInterval(running); set(defaults); };
form.oninput = ({ target }) => { if (target.name) apply(); };
form.onsubmit = (event) => event.preventDefault();
isDark.onchange = apply;
set(Object.fromEntries(new URLSearchParams(location.search)));
