#pragma once

/// Every kind of finding: KIND(NAME, SEVERITY, "meaning"). The name in small
/// letters, with dashes, is the code that users and programs see; it does not
/// change once released. The meaning is a row of docs/user/findings.md, in
/// Markdown.
// clang-format off
#define VEMO_FINDING_KINDS(KIND) \
  KIND(ANNOTATION_WITHOUT_TEXT, LOST, "An annotation has no text and is left out.") \
  KIND(ARCHIVE_INVALID, REFUSED, "The file is not an archive that can be read.") \
  KIND(ARRAY_LEFT_OUT, LOST, "A data array is left out: its number of values does not fit its points or cells.") \
  KIND(ASSEMBLY_EMPTY, LOST, "An assembly without items is left out, with its colormaps, legend and transform.") \
  KIND(ATTRIBUTE_INAPPLICABLE, NOTE, "An attribute does nothing for a geometry of this type: face colours of lines, for instance.") \
  KIND(ATTRIBUTE_UNKNOWN, LOST, "An attribute that no element of its kind has is ignored.") \
  KIND(ATTRIBUTE_WITHOUT_EFFECT, NOTE, "An attribute of the format that the new generation has no place for.") \
  KIND(CELLS_LEFT_OUT, LOST, "Cells with fewer points than their kind needs are left out.") \
  KIND(CHECKSUM_WRONG, CHANGED, "An entry of the archive is used though its checksum is wrong.") \
  KIND(CLASS_UNKNOWN, LOST, "A database has nodes of a class that this version does not know; they are left out.") \
  KIND(COLORMAP_UNKNOWN, CHANGED, "A legend names a colormap that its assembly does not have; the active one is shown.") \
  KIND(COLORMAP_UNUSED, LOST, "A colormap is not used: another one of the assembly, or one of an enclosing assembly, colours the data.") \
  KIND(DATABASE_DAMAGED, REFUSED, "A database, or one of its records or arrays, cannot be read.") \
  KIND(DECORATIONS_LIMITED, LOST, "Of very many triads, legends, texts and images only the first are drawn.") \
  KIND(DESCRIPTION_REPLACED, NOTE, "An archive holds a scene graph of its own, which is used instead of its items.") \
  KIND(ELEMENT_UNKNOWN, LOST, "An element that its parent element cannot hold is ignored, with all that it holds.") \
  KIND(ELEMENT_WITHOUT_EFFECT, LOST, "An element of the format that does nothing in this place.") \
  KIND(ENTRY_INVALID, REFUSED, "An entry of the archive is missing, has a bad size or cannot be read.") \
  KIND(ENTRY_UNUSED, LOST, "An entry of the archive that the scene does not refer to.") \
  KIND(FIELD_UNKNOWN, LOST, "A database has fields that this version does not know; they are left out.") \
  KIND(GEOMETRY_NOT_DRAWN, LOST, "A geometry cannot be drawn.") \
  KIND(HIDDEN_BY_DEFAULT, NOTE, "An item that states no visibility is hidden.") \
  KIND(IMAGE_NOT_DRAWN, LOST, "An image cannot be drawn: its pixels do not fit its size.") \
  KIND(IMAGE_WITHOUT_PIXELS, LOST, "An image without pixels is left out.") \
  KIND(ITEM_INVALID, REFUSED, "An item contradicts itself.") \
  KIND(KIND_NOT_SHOWN, LOST, "Items of this kind are not shown: `vectors`, `streamlines`.") \
  KIND(LEGEND_WITHOUT_COLORMAP, LOST, "A legend without a colormap is left out.") \
  KIND(LIGHTS_LIMITED, LOST, "Of many lights only the first light the picture.") \
  KIND(NOT_COLORED_BY_ARRAY, CHANGED, "A geometry is drawn without the colours of its data array, which does not fit it.") \
  KIND(NUMBER_INVALID, REFUSED, "A text is not a number where there must be one.") \
  KIND(PAYLOAD_DAMAGED, LOST, "Data of the scene graph that an archive carries cannot be read.") \
  KIND(PLANES_LIMITED, CHANGED, "Of many clipping planes only the first cut.") \
  KIND(POINTS_NOT_SCALED, CHANGED, "Points are drawn in one size: the array that scales them does not fit them.") \
  KIND(POINTS_WITHOUT_POSITION, CHANGED, "A geometry has no points with finite coordinates.") \
  KIND(REFERENCE_LOST, LOST, "A reference to a node outside the written scene is not written.") \
  KIND(REPEATS_LIMITED, LOST, "Of very many repeats only the first are shown.") \
  KIND(SCENE_NOT_DRAWN, LOST, "A scene is too large to be drawn.") \
  KIND(STREAM_INVALID, LOST, "A scene stream cannot be read.") \
  KIND(TEXT_IGNORED, LOST, "Text inside an element that takes none is ignored.") \
  KIND(VALUE_IGNORED, CHANGED, "A value that cannot be read or is out of range is replaced by the default.") \
  KIND(VERSION_TOO_NEW, REFUSED, "An element is of a newer version than this program knows.") \
  KIND(XML_INVALID, REFUSED, "The scene description is not well-formed XML, nests too deeply or is too large.")
// clang-format on
