// Cells: where cards stand, how they flow where the canvas is narrow, and who makes room for whom. Numbers only.

const kSizes = { systemSmall: [170, 170], systemMedium: [364, 170], systemLarge: [364, 382] };
/** In points, as on the usual screen. */
export const sizeOf = (family) => kSizes[family] ?? [170, 170];
const kSpans = { systemSmall: [1, 1], systemMedium: [2, 1], systemLarge: [2, 2] };
export const spanOf = (family) => kSpans[family] ?? [1, 1];

const overlap = (a, b) => {
  const [aw, ah] = spanOf(a.family);
  const [bw, bh] = spanOf(b.family);
  return a.column < b.column + bw && b.column < a.column + aw && a.row < b.row + bh && b.row < a.row + ah;
};
const fits = (item, placed, columns) => item.column + spanOf(item.family)[0] <= columns
  && !placed.some((other) => overlap(item, other));

/** The first free cell in reading order, at or below `row`; a canvas that is too narrow for the family counts as wide enough. */
export function freeCell(family, placed, columns, row = 0) {
  const width = Math.max(columns, spanOf(family)[0]);
  for (const item = { family, row }; ; item.row++) {
    for (item.column = 0; item.column < width; item.column++) {
      if (fits(item, placed, width)) return { column: item.column, row: item.row };
    }
  }
}

export const inReadingOrder = (items) => [...items].sort((a, b) => a.row - b.row || a.column - b.column);

/** Cards as they are placed, or, where the canvas has fewer columns than they need, packed in reading order. */
export function flow(items, columns) {
  if (items.every((item, i) => fits(item, items.slice(0, i), columns))) return items;
  const placed = [];
  for (const item of inReadingOrder(items)) placed.push({ ...item, ...freeCell(item.family, placed, columns) });
  return placed;
}

/** `moved` gets its cell; whoever stood there moves to the next free cell at or below its own, and nobody else moves. */
export function makeRoom(items, moved, columns) {
  const others = items.filter(({ id }) => id !== moved.id);
  const placed = [moved, ...others.filter((item) => !overlap(item, moved))];
  for (const item of inReadingOrder(others.filter((other) => overlap(other, moved)))) {
    placed.push({ ...item, ...freeCell(item.family, placed, columns, item.row) });
  }
  return placed;
}

/** The next card in a direction, nearest first; what lies aside counts double. */
export function neighbour(items, from, [dx, dy]) {
  const sides = ({ column, row, family }) => { const [w, h] = spanOf(family); return [column, row, column + w, row + h]; };
  const [left, top, right, bottom] = sides(from);
  const rated = inReadingOrder(items).map((item) => {
    const [l, t, r, b] = sides(item);
    const along = dx > 0 ? l - right : dx < 0 ? left - r : dy > 0 ? t - bottom : top - b;
    const aside = dx ? Math.max(t - bottom, top - b, -1) : Math.max(l - right, left - r, -1);
    return { item, along, cost: along + 2 * Math.max(0, aside + 1) };
  });
  return rated.filter(({ along }) => along >= 0).sort((a, b) => a.cost - b.cost)[0]?.item;
}
