// The edit sheet: size, and every parameter that the widget declares.

import { get, post } from './host.js';
import { asQuery } from './settings.js';
import { attempt, make, showPicture } from './dom.js';

const sheet = document.getElementById('sheet');
export const letters = { systemSmall: 'S', systemMedium: 'M', systemLarge: 'L' };
export const sizes = { systemSmall: 'Small', systemMedium: 'Medium', systemLarge: 'Large' };

/** A row of sizes as radio buttons. */
export function sizeField(families, chosen, onchange, name = 'family') {
  return make('span', { class: 'segments', role: 'radiogroup', 'aria-label': 'Size' }, ...families.map((family) => make('label', { title: sizes[family] },
    make('input', { type: 'radio', name, value: family, checked: family === chosen, 'aria-label': sizes[family], onchange: () => onchange?.(family) }), letters[family])));
}

/** A picture of the widget as it would be with that configuration. */
async function previewOf(placement, configuration) {
  const holder = make('span', { class: 'thumb', 'aria-hidden': 'true' });
  const answer = await attempt(() => get('preview', { ...asQuery(), kind: placement.kind, family: 'systemSmall', configuration: JSON.stringify(configuration) }));
  if (answer?.svg) showPicture(holder, answer.svg);
  return holder;
}

const radio = (parameter, value, title, chosen, extra) => make('label', {}, extra,
  make('span', {}, make('input', { type: 'radio', name: parameter.name, value, checked: value === chosen }), ' ', title));

function enumerationField(placement, parameter) {
  const chosen = placement.configuration[parameter.name] ?? parameter.default ?? '';
  const choices = make('div', { class: 'styles' });
  Promise.all(parameter.cases.map(async ({ id, title }) =>
    radio(parameter, id, title, chosen, await previewOf(placement, { ...placement.configuration, [parameter.name]: id })))).then((all) => choices.replaceChildren(...all));
  return make('fieldset', {}, make('legend', {}, parameter.title), choices);
}

function entityField(placement, parameter) {
  const chosen = placement.configuration[parameter.name] ?? '';
  const list = make('div', { class: 'choices' });
  const note = make('p', { class: 'warn' });
  let asking;
  const load = async (text) => {
    asking?.abort();
    asking = new AbortController();
    const kept = list.querySelector(':checked')?.value ?? chosen;
    const answer = await attempt(() => get('options', { kind: placement.kind, parameter: parameter.name, query: text }, asking.signal));
    if (!answer) return;
    const rows = answer.options.map(({ id, title }) => radio(parameter, id, title, kept));
    if (!text) rows.unshift(radio(parameter, '', `All, in the document's order`, kept));
    list.replaceChildren(...(rows.length ? rows : [make('p', { class: 'quiet' }, 'Nothing has that in its name.')]));
    if (!text && chosen && !answer.options.some(({ id }) => id === chosen) && !answer.more) note.textContent = `The chosen ${parameter.title.toLowerCase()} is no longer in the document, so the widget shows all of them.`;
    if (answer.more) list.append(make('p', { class: 'quiet' }, 'There are more: search for a name.'));
  };
  const search = make('input', { type: 'search', placeholder: 'Search', 'aria-label': `Search: ${parameter.title}`, oninput: () => load(search.value) });
  load('');
  return make('fieldset', {}, make('legend', {}, parameter.title), search, list, note);
}

/** @param offer the widget in the gallery: families and parameters */
export function edit(placement, offer, onClosed) {
  const fields = offer.parameters.map((parameter) => (parameter.type === 'enumeration' ? enumerationField : entityField)(placement, parameter));
  const save = async (event) => {
    event.preventDefault();
    const values = new FormData(form);
    const configuration = { ...placement.configuration };
    for (const { name } of offer.parameters) if (values.has(name)) values.get(name) ? configuration[name] = values.get(name) : delete configuration[name];
    if (await attempt(() => post('configure', { id: placement.id, family: values.get('family'), configuration })) !== undefined) sheet.close();
  };
  const form = make('form', { onsubmit: save }, make('h2', { id: 'sheetTitle' }, offer.name), make('p', { class: 'quiet' }, offer.description),
    offer.families.length > 1 && make('fieldset', {}, make('legend', {}, 'Size'), sizeField(offer.families, placement.family)), ...fields,
    make('div', { class: 'ends' }, make('button', { onclick: () => sheet.close() }, 'Cancel'), make('button', { type: 'submit', class: 'main' }, 'Save')));
  sheet.replaceChildren(form);
  sheet.addEventListener('close', onClosed, { once: true });
  sheet.showModal();
}
