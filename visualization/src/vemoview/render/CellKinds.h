#pragma once

/// The kinds of cells of a poly data, in the order in which its cells are
/// numbered. Sets of them are sums.
enum CellKinds : unsigned {
  VERTEX_CELLS = 1,
  LINE_CELLS = 2,
  POLYGON_CELLS = 4,
  STRIP_CELLS = 8,
  ALL_CELLS = 15,
};
