#pragma once

/// Every kind of finding: KIND(NAME, SEVERITY, "meaning"). The name in small
/// letters, with dashes, is the code that users and programs see; it does not
/// change once released. The meaning is a row of docs/user/findings.md, in
/// Markdown.
// clang-format off
#define VEMO_FINDING_KINDS(KIND) \
  KIND(ANNOTATION_WITHOUT_TEXT, LOST, "An annotation has no text and is left out.") \
  KIND(ARRAY_LEFT_OUT, LOST, "A data array is left out: its number of values does not fit its points or cells.") \
  KIND(ASSEMBLY_EMPTY, LOST, "An assembly without items is left out, with its colormaps, legend and transform.") \
  KIND(ATTRIBUTE_UNKNOWN, LOST, "An attribute that no element of its kind has is ignored.") \
  KIND(ATTRIBUTE_WITHOUT_EFFECT, NOTE, "An attribute of the format that the new generation has no place for.") \
  KIND(CELLS_LEFT_OUT, LOST, "Cells with fewer points than their kind needs are left out.") \
  KIND(CLASS_UNKNOWN, LOST, "A database has nodes of a class that this version does not know; they are left out.") \
  KIND(COLORMAP_ADJUSTED, CHANGED, "A colormap cannot be used as it is: its range, scale or colours are replaced.") \
  KIND(COLORMAP_UNKNOWN, CHANGED, "A legend names a colormap that its assembly does not have; the active one is shown.") \
  KIND(DECORATION_NOT_DRAWN, LOST, "A legend, text, image or triad has no usable position or size and is not drawn.") \
  KIND(DECORATIONS_LIMITED, LOST, "Of very many triads, legends, texts and images only the first are drawn.") \
  KIND(ELEMENT_UNKNOWN, LOST, "An element that its parent element cannot hold is ignored, with all that it holds.") \
  KIND(ELEMENT_WITHOUT_EFFECT, LOST, "An element of the format that does nothing in this place.") \
  KIND(ENTRY_UNUSED, LOST, "An entry of the archive that the scene does not refer to.") \
  KIND(FIELD_UNKNOWN, LOST, "A database has fields that this version does not know; they are left out.") \
  KIND(GEOMETRY_NOT_DRAWN, LOST, "A geometry cannot be drawn.") \
  KIND(GLYPH_MISSING, LOST, "A text has characters that no installed font has.") \
  KIND(IMAGE_NOT_DRAWN, LOST, "An image cannot be drawn: its pixels do not fit its size.") \
  KIND(IMAGE_WITHOUT_PIXELS, LOST, "An image without pixels is left out.") \
  KIND(KIND_NOT_SHOWN, LOST, "Items of this kind are not shown: `vectors`, `streamlines`.") \
  KIND(LEGEND_MOVED, CHANGED, "A legend that would leave the window is moved into it.") \
  KIND(LEGEND_WITHOUT_COLORMAP, LOST, "A legend without a colormap is left out.") \
  KIND(LIGHTS_LIMITED, LOST, "Of many lights only the first light the picture.") \
  KIND(NOT_COLORED_BY_ARRAY, CHANGED, "A geometry is drawn without the colours of its data array, which does not fit it.") \
  KIND(PAYLOAD_DAMAGED, LOST, "Data of the scene graph that an archive carries cannot be read.") \
  KIND(PLANES_LIMITED, CHANGED, "Of many clipping planes only the first cut.") \
  KIND(POINT_SCALE_ADJUSTED, CHANGED, "Points are scaled over another range than the one stated, which their scale cannot have.") \
  KIND(POINTS_NOT_SCALED, CHANGED, "Points are drawn in one size: there is nothing that scales them.") \
  KIND(POINTS_WITHOUT_POSITION, CHANGED, "A geometry has no points with finite coordinates.") \
  KIND(REFERENCE_LOST, LOST, "A reference to a node outside the written scene is not written.") \
  KIND(REPEATS_LIMITED, LOST, "Of very many repeats only the first are shown.") \
  KIND(STREAM_INVALID, LOST, "A scene stream cannot be read.") \
  KIND(TEXT_CHANGED, CHANGED, "A text is too long and cut off, or is not UTF-8.") \
  KIND(VALUE_IGNORED, CHANGED, "A value that cannot be read or is out of range is replaced by the default.")
// clang-format on
