// How this page shows the widgets: previews only, kept in the URL, so that a view can be bookmarked. Defaults are left out.

export const defaults = { appearance: 'system', mode: 'fullColor', tint: '', background: '1', privacy: 'off', preset: 'standard', now: '' };

const read = () => ({ ...defaults, ...Object.fromEntries([...new URLSearchParams(location.search)].filter(([name]) => name in defaults)) });

export const settings = read();
export const changes = new EventTarget();

export const changed = () => Object.keys(defaults).filter((name) => settings[name] !== defaults[name]);

/** Sets some of them. `quietly`: the URL alone keeps its history, as for a clock that runs. */
export function set(values) {
  Object.assign(settings, values);
  const query = new URLSearchParams(changed().map((name) => [name, settings[name]])).toString();
  history.replaceState(null, '', query ? `?${query}` : location.pathname);
  apply();
  changes.dispatchEvent(new Event('change'));
}

const dark = matchMedia('(prefers-color-scheme: dark)');
export const appearance = () => (settings.appearance === 'system' ? (dark.matches ? 'dark' : 'light') : settings.appearance);
const apply = () => { Object.assign(document.documentElement.dataset, { appearance: appearance(), ground: settings.background }); };
dark.addEventListener('change', () => set({}));
apply();

/** The query of a picture. */
export const asQuery = () => {
  const query = { appearance: appearance(), mode: settings.mode, background: settings.background, privacy: settings.privacy, preset: settings.preset };
  if (settings.mode === 'accented' && settings.tint) query.tint = settings.tint;
  if (settings.now) query.now = settings.now;
  return query;
};
