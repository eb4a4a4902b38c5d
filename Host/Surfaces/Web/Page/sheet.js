// The edit sheet: size, and every parameter that the widget declares.

import { get, post } from './host.js';
import { $, attempt, make } from './dom.js';

const sheet = $('#sheet');
const form = $('form', sheet);
export const letters = { systemSmall: 'S', systemMedium: 'M', systemLarge: 'L' };
export const sizes = { systemSmall: 'Small', systemMedium: 'Medium', systemLarge: 'Large' };

const radio = (name, value, checked, properties) => make('input', { type: 'radio', name, value, checked, ...properties });

/** Sizes as radio buttons. */
export const sizeField = (name, families, chosen, choose) => families.map((family) => {
  const properties = { ariaLabel: sizes[family], onchange: () => choose?.(family) };
  return make('label', { title: sizes[family] }, radio(name, family, family === chosen, properties), letters[family]);
});

/** Styles, each as a picture of the widget in it. */
function enumerationField({ kind, configuration }, { name, cases, default: usual }, draw) {
  const chosen = configuration[name] ?? usual;
  return [make('div', { className: 'styles' }, ...cases.map(({ id, title }) => {
    const picture = make('span', { className: 'thumb', ariaHidden: 'true' });
    draw(picture, { kind, family: 'systemSmall', configuration: JSON.stringify({ ...configuration, [name]: id }) }, 110);
    return make('label', {}, picture, make('span', {}, radio(name, id, id === chosen), title));
  }))];
}

/** One of what the document holds, found by search, or none. */
function entityField({ kind, configuration }, { name, title }) {
  const chosen = configuration[name] ?? '';
  const list = make('div', { className: 'choices' });
  const note = make('p', { className: 'warn' });
  let asking;
  const load = async (query) => {
    asking?.abort();
    asking = new AbortController();
    const answer = await attempt(() => get('options', { kind, parameter: name, query }, asking.signal));
    if (!answer) return;
    const { options, more, default: usual } = answer;
    const kept = $(':checked', list)?.value ?? chosen;
    const row = (value, text) => make('label', {}, radio(name, value, value === kept), text);
    // What is chosen stays so, found or not.
    const rows = options.map((option) => row(option.id, option.id === usual ? `${option.title} (first)` : option.title));
    if (!query) rows.unshift(row('', 'All, in the document’s order'));
    else if (!options.some(({ id }) => id === kept)) rows.push(make('label', { hidden: true }, radio(name, kept, true)));
    const words = more ? 'There are more: search for a name.' : options.length ? '' : 'Nothing has that in its name.';
    list.replaceChildren(...rows, make('p', { className: 'quiet' }, words));
    if (!query && !more && chosen && !options.some(({ id }) => id === chosen)) {
      note.textContent = `The chosen ${title.toLowerCase()} is no longer in the document, so the widget shows all of them.`;
    }
  };
  load('');
  const search = make('input', {
    type: 'search', placeholder: 'Search', ariaLabel: `Search: ${title}`, oninput: () => load(search.value),
    onkeydown: (event) => { if (event.key === 'Enter') event.preventDefault(); },
  });
  return [search, list, note];
}

/**
 * @param offer the widget in the gallery: families and parameters
 * @param draw as gallery.js draws previews
 */
export function edit({ placement }, offer, draw) {
  const { id, family, configuration } = placement;
  $('h2', sheet).textContent = offer.name;
  $('p', sheet).textContent = offer.description;
  $('.segments', sheet).replaceChildren(...sizeField('family', offer.families, family));
  $('#sheetSize').hidden = offer.families.length < 2;
  $('#sheetFields').replaceChildren(...offer.parameters.map((parameter) => {
    const field = parameter.type === 'enumeration' ? enumerationField : entityField;
    return make('fieldset', {}, make('legend', {}, parameter.title), ...field(placement, parameter, draw));
  }));
  form.onsubmit = async (event) => {
    event.preventDefault();
    const chosen = Object.fromEntries(new FormData(form));
    const values = { ...configuration };
    for (const { name } of offer.parameters) {
      if (chosen[name]) values[name] = chosen[name];
      else if (name in chosen) delete values[name];
    }
    if (await attempt(() => post('configure', { id, family: chosen.family, configuration: values }))) sheet.close();
  };
  sheet.showModal();
}

$('#cancel').onclick = () => sheet.close();
