// Moving cards: with the pointer after 4 pixels, so that a click stays a click, or with the arrows until Enter or Esc.

import { $, say } from './dom.js';

const swallow = (event) => { event.preventDefault(); event.stopPropagation(); };

/**
 * @param item what moves, with its family; the id of a card, or none for what is not placed yet
 * @param drop gets the cell; not called when there is none or Esc ends the drag
 */
export function startDrag(down, board, item, drop) {
  if (down.button || down.pointerType === 'touch') return;
  const source = down.currentTarget;
  const ended = new AbortController();
  const card = board.cards.get(item.id);
  let cell;
  let hasBegun = false;
  const move = (event) => {
    const [dx, dy] = [event.clientX - down.clientX, event.clientY - down.clientY];
    if (!hasBegun && Math.hypot(dx, dy) < 4) return;
    if (!hasBegun) source.setPointerCapture(down.pointerId);
    hasBegun = true;
    cell = board.cellAt(event, item.family);
    board.scrollAt(event);
    board.preview(item, cell);
    card?.place({ ...card.box, ...board.boxOf(item), x: board.boxOf(item).x + dx, y: board.boxOf(item).y + dy }, board.zoom);
  };
  const end = (event) => {
    ended.abort();
    if (!hasBegun) return;
    board.preview();
    // The click that ends a drag follows no link.
    addEventListener('click', swallow, { capture: true });
    setTimeout(() => removeEventListener('click', swallow, { capture: true }));
    if (event.type === 'pointerup' && cell) drop(cell);
  };
  const options = { signal: ended.signal, capture: true };
  source.addEventListener('pointermove', move, options);
  source.addEventListener('pointerup', end, options);
  source.addEventListener('pointercancel', end, options);
  addEventListener('keydown', (event) => { if (event.key === 'Escape' && hasBegun) { swallow(event); end(event); } }, options);
}

export const kArrows = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };

/** A card follows the arrows, or goes to where the canvas is pressed; Enter keeps it there, Esc puts it back. */
export function moveByKeys(board, card) {
  const item = board.placed.find(({ id }) => id === card.id);
  const ended = new AbortController();
  let { column, row } = item;
  const where = () => `${card.title}, column ${column + 1}, row ${row + 1}`;
  const end = (keeps) => {
    ended.abort();
    board.preview();
    if (keeps) board.move(card.id, { column, row }); else say(`${card.title} stays where it was.`);
    card.focus();
  };
  const onkey = (event) => {
    const arrow = kArrows[event.key];
    swallow(event);
    if (arrow) {
      ({ column, row } = board.clamp({ column: column + arrow[0], row: row + arrow[1] }, item.family));
      board.preview(item, { column, row });
      say(where());
    } else if (event.key === 'Enter') end(true);
    else if (event.key === 'Escape' || event.key === 'Tab') end(false);
  };
  const onpress = (event) => {
    swallow(event);
    addEventListener('click', swallow, { capture: true, once: true });
    const cell = board.cellAt(event, item.family);
    if (cell) ({ column, row } = cell);
    end(cell);
  };
  board.preview(item, item);
  card.focus();
  say(`Moving ${where()}. Arrows move it, Enter keeps it, Escape puts it back.`);
  addEventListener('keydown', onkey, { signal: ended.signal, capture: true });
  $('#canvas').addEventListener('pointerdown', onpress, { signal: ended.signal, capture: true });
}
