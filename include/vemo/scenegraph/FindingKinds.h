#pragma once

/// Every kind of finding: KIND(NAME, SEVERITY, "meaning"). The name in small
/// letters, with dashes, is the code that users and programs see; it does not
/// change once released. The meaning is a row of docs/user/findings.md, in
/// Markdown.
// clang-format off
#define VEMO_FINDING_KINDS(KIND) \
  KIND(ANNOTATION_WITHOUT_TEXT, LOST, "An annotation has no text and is left out.") \
  KIND(ARCHIVE_INVALID, REFUSED, "The file is not an archive that can be read.") \
  KIND(ARRAY_CUT, LOST, "Values at the end of an entry that do not make up a whole point or tuple are left out.") \
  KIND(ARRAY_IS_NORMALS, LOST, "An array named `Normals` counts as normals: it colours nothing, and computed normals may replace it.") \
  KIND(ARRAY_LEFT_OUT, LOST, "A data array is left out: its number of values does not fit its points or cells, or there are 4,096 arrays already.") \
  KIND(ARRAY_MAGNITUDE, CHANGED, "An array of triples is replaced by their lengths.") \
  KIND(ARRAY_REPLACED, LOST, "Of several arrays of one name over the same places only the last one is kept.") \
  KIND(ARRAY_WITHOUT_NAME, CHANGED, "An array has no name, so that nothing can refer to it.") \
  KIND(ASSEMBLY_EMPTY, LOST, "An assembly without items is left out, with its colormaps, legend and transform.") \
  KIND(ATTRIBUTE_UNKNOWN, LOST, "An attribute that no element of its kind has is ignored.") \
  KIND(ATTRIBUTE_WITHOUT_EFFECT, NOTE, "A value that is not the default, for which the new generation has no place.") \
  KIND(CELLS_LEFT_OUT, LOST, "Cells with fewer points than their kind needs are left out.") \
  KIND(CHECKSUM_WRONG, CHANGED, "The content of an entry does not match its checksum, or cannot be read though nothing uses it: it may be damaged.") \
  KIND(CLASS_UNKNOWN, LOST, "A database has nodes of a class that this version does not know; they are left out.") \
  KIND(COLORMAP_ADJUSTED, CHANGED, "A colormap cannot be used as it is: its range, scale or colours are replaced.") \
  KIND(COLORMAP_REPLACED, CHANGED, "A colormap also colours items added by another of the same name.") \
  KIND(COLORMAP_UNKNOWN, CHANGED, "A legend names a colormap that its assembly does not have; the active one is shown.") \
  KIND(COLORMAP_UNUSED, LOST, "A colormap colours nothing: neither data nor a legend.") \
  KIND(DATABASE_DAMAGED, REFUSED, "A database, or one of its records or arrays, cannot be read.") \
  KIND(DECLARATIONS_NOT_READ, LOST, "The scene description refers to entities or declarations in other files, which are not read: what they hold or declare is missing.") \
  KIND(DECORATION_NOT_DRAWN, LOST, "A legend, text, image or triad has no usable position or size and is not drawn.") \
  KIND(DECORATIONS_LIMITED, LOST, "Of very many triads, legends, texts and images only the first are drawn.") \
  KIND(DESCRIPTION_REPLACED, NOTE, "An archive holds a scene graph of its own, which is used instead of its items.") \
  KIND(ELEMENT_REPLACED, LOST, "Only one of several elements is used, where one is allowed.") \
  KIND(ELEMENT_UNKNOWN, LOST, "An element that its parent element cannot hold is ignored, with all that it holds.") \
  KIND(ELEMENT_WITHOUT_EFFECT, LOST, "An element of the format that has no effect in this place.") \
  KIND(ENTRIES_NOT_COUNTED, LOST, "An archive has more entries than it says; those beyond that number are not read.") \
  KIND(ENTRY_INVALID, REFUSED, "An entry of the archive is missing, has a bad size or cannot be read.") \
  KIND(ENTRY_NAME_DIFFERS, CHANGED, "An entry has another name in front of its content than in the archive's directory, which counts. Only `check` looks at it.") \
  KIND(ENTRY_REPLACED, LOST, "Of several entries of one name only the last one is used.") \
  KIND(ENTRY_SHORT, CHANGED, "An entry ends before its size; the rest is filled with zeros.") \
  KIND(ENTRY_UNUSED, LOST, "An entry of the archive that the scene does not refer to.") \
  KIND(FIELD_UNKNOWN, LOST, "A database has fields that this version does not know; they are left out.") \
  KIND(GEOMETRY_NOT_DRAWN, LOST, "A geometry cannot be drawn, or the model is too small to be seen.") \
  KIND(GEOMETRY_TYPE_CHANGED, CHANGED, "A geometry is drawn as another type, because all cells of its own were left out.") \
  KIND(GLYPH_MISSING, LOST, "A text has characters that no installed font has, or that are beyond U+FFFF.") \
  KIND(HIDDEN_BY_DEFAULT, NOTE, "An item is hidden because it does not state otherwise: no `visibility`, a surface without `showFaces` and edges, a light without `intensity`.") \
  KIND(IMAGE_NOT_DRAWN, LOST, "An image cannot be drawn: its pixels do not fit its size.") \
  KIND(IMAGE_WITHOUT_PIXELS, LOST, "An image without pixels is left out.") \
  KIND(ITEM_INVALID, REFUSED, "An item contradicts itself.") \
  KIND(ITEM_REPLACED, LOST, "An item is replaced by a later one of its kind and name.") \
  KIND(KIND_NOT_SHOWN, LOST, "Items of this kind are not shown: `vectors`, `streamlines`.") \
  KIND(LEGEND_MOVED, CHANGED, "A legend that would leave the window is moved into it.") \
  KIND(LEGEND_OF_OTHER_COLORS, NOTE, "A legend shows another colormap than the one that colours its assembly.") \
  KIND(LEGEND_WITHOUT_COLORMAP, LOST, "A legend without a colormap is left out.") \
  KIND(LIGHTS_LIMITED, LOST, "Of many lights only the first are used.") \
  KIND(NOT_COLORED_BY_ARRAY, CHANGED, "A geometry is drawn without the colours of its data array, which is missing or does not fit.") \
  KIND(NUMBER_INVALID, REFUSED, "A text is not a number where one is required.") \
  KIND(PAYLOAD_DAMAGED, LOST, "Data of the scene graph that an archive carries cannot be read.") \
  KIND(PLANES_LIMITED, CHANGED, "Of many clipping planes only the first are applied.") \
  KIND(POINT_SCALE_ADJUSTED, CHANGED, "Points are scaled over another range, or to other sizes, than stated, because they cannot have these.") \
  KIND(POINTS_NOT_SCALED, CHANGED, "Points are drawn in one size: no data scale them.") \
  KIND(POINTS_WITHOUT_POSITION, CHANGED, "Points have coordinates that are not finite: they, and the faces that they are corners of, are not drawn.") \
  KIND(POLYGONS_FOLDED, CHANGED, "Polygons are concave or cross themselves in such a way that they are drawn in another shape.") \
  KIND(REFERENCE_LOST, LOST, "A reference to a node outside the written scene is not written.") \
  KIND(REPEATS_LIMITED, LOST, "Of very many repeats only the first are shown.") \
  KIND(ROOT_UNKNOWN, CHANGED, "The root element is not called `scene`, but is read as one.") \
  KIND(SCENE_NOT_DRAWN, LOST, "A scene is too large to be drawn.") \
  KIND(SETTINGS_REPLACED, CHANGED, "Geometries of one name and type share a drawable, but state different settings for it.") \
  KIND(STREAM_INVALID, LOST, "A scene stream cannot be read.") \
  KIND(TEXT_CHANGED, CHANGED, "A text is too long and is cut off or drawn smaller, or is not UTF-8.") \
  KIND(TEXT_IGNORED, LOST, "Text inside an element that takes none is ignored.") \
  KIND(TEXT_RECOLORED, NOTE, "Black text is drawn white, because the background is dark.") \
  KIND(TRANSFORM_REPLACED, LOST, "Of the transforms of assemblies of one name only the last one is used.") \
  KIND(TRANSFORM_SHARED, CHANGED, "A transform also applies to items added by another of the same name.") \
  KIND(TRANSFORM_UNUSABLE, CHANGED, "A transform has a scale of zero in some directions, an axis without direction, a mirror without normal, a repeat without number, or numbers that are too small or too large.") \
  KIND(VALUE_IGNORED, CHANGED, "A value that cannot be read or is out of range is replaced by the default.") \
  KIND(VALUE_UNREADABLE, CHANGED, "A value is not written as its type demands; the format still gives it a meaning.") \
  KIND(VERSION_TOO_NEW, REFUSED, "An element is of a newer version than this program knows.") \
  KIND(VIEW_ADJUSTED, CHANGED, "A view has no direction, upward direction or scale that can be used; others replace them.") \
  KIND(VISIBILITY_PARTIAL, CHANGED, "A visibility between 0 and 1 counts as 1, except for images.") \
  KIND(XML_INVALID, REFUSED, "The scene description is not well-formed XML, nests too deeply or is too large.")
// clang-format on
