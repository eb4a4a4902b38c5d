// Asks the host at once, and lets the empty page be painted before the rest of the script runs.

import { get } from './host.js';

document.documentElement.dataset.appearance = new URLSearchParams(location.search).get('appearance');

export const first = get('state');
first.catch(() => {});

const go = () => import('./board.js');
requestAnimationFrame(() => setTimeout(go));
setTimeout(go, 200);  // a page that nobody looks at is never painted
