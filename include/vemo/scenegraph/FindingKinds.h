#pragma once

/// Every kind of finding: KIND(NAME, SEVERITY, "meaning"). The name in small
/// letters, with dashes, is the code that users and programs see; it does not
/// change once released. The meaning is a row of docs/user/findings.md, in
/// Markdown.
// clang-format off
#define VEMO_FINDING_KINDS(KIND) \
  KIND(ANNOTATION_WITHOUT_TEXT, LOST, "An annotation has no text, or only blanks, and is left out.") \
  KIND(ARCHIVE_INVALID, REFUSED, "The file is not a readable archive.") \
  KIND(ARRAY_CUT, LOST, "Values at the end of an entry that do not form a complete point or tuple are left out.") \
  KIND(ARRAY_IS_NORMALS, CHANGED, "An array named `Normals` counts as normals: it colours nothing.") \
  KIND(ARRAY_LEFT_OUT, LOST, "A data array is left out: its number of values does not match the number of points or cells, or the geometry already has 4,096 arrays.") \
  KIND(ARRAY_MAGNITUDE, CHANGED, "An array of vectors with three components is replaced by their lengths.") \
  KIND(ARRAY_REPLACED, LOST, "Of several arrays with the same name, all over points or all over cells, only the last one is kept; one named `Normals` is replaced by normals that are computed for the same places.") \
  KIND(ARRAY_WITHOUT_NAME, CHANGED, "An array has no name, so that nothing can refer to it.") \
  KIND(ASSEMBLY_EMPTY, LOST, "An assembly without items is left out, with its colormaps, legend and transform.") \
  KIND(ATTRIBUTE_UNKNOWN, LOST, "An attribute that the format does not have for its element is ignored.") \
  KIND(ATTRIBUTE_WITHOUT_EFFECT, NOTE, "A value has no effect on what is drawn. It is not the default.") \
  KIND(CELLS_LEFT_OUT, LOST, "Cells with fewer points than cells of their kind must have are left out.") \
  KIND(CHECKSUM_WRONG, CHANGED, "The content of an entry, or of an array of a database that no node has, does not match its checksum, or an unused entry cannot be read: it may be damaged.") \
  KIND(CLASS_UNKNOWN, LOST, "A database has nodes of a class that this version does not know. They are left out.") \
  KIND(COLORMAP_ADJUSTED, CHANGED, "A colormap has an unusable range, scale or list of colours, which is replaced.") \
  KIND(COLORMAP_REPLACED, CHANGED, "A colormap also colours the items of another assembly with the same name.") \
  KIND(COLORMAP_UNKNOWN, CHANGED, "A legend names a colormap that its assembly does not have; the active one is shown.") \
  KIND(COLORMAP_UNUSED, LOST, "A colormap colours nothing: neither data nor a legend.") \
  KIND(DATABASE_DAMAGED, REFUSED, "A database, or one of its records or arrays, cannot be read.") \
  KIND(DECLARATIONS_NOT_READ, LOST, "The scene description refers to entities or declarations in other files. These are not read, so that their content is missing.") \
  KIND(DECORATION_CUT, CHANGED, "A part of a text or image is outside the window, or a part of a text or triad in the model is outside a picture of the whole scene: it is not drawn.") \
  KIND(DECORATION_NOT_DRAWN, LOST, "A legend, text, image or triad is not drawn: it has no usable position or size, is outside the window, or has less than a pixel in it.") \
  KIND(DECORATION_NOT_IN_VIEW, NOTE, "A view does not show a text, image or triad in the model: it is behind the camera, beside the picture or, if it is an image, smaller than a pixel, seen edge-on or cut away by clipping planes.") \
  KIND(DECORATIONS_LIMITED, LOST, "There are too many triads, legends, texts and images: only the first ones are drawn.") \
  KIND(DESCRIPTION_REPLACED, NOTE, "An archive contains a scene graph, which is used instead of its items.") \
  KIND(ELEMENT_REPLACED, LOST, "Of several elements where only one is allowed, one is used.") \
  KIND(ELEMENT_UNKNOWN, LOST, "An element that is not allowed in its parent is ignored, with everything in it.") \
  KIND(ELEMENT_WITHOUT_EFFECT, LOST, "An element of the format has no effect in this place.") \
  KIND(ENTRIES_NOT_COUNTED, LOST, "An archive has more entries than it states. Those beyond that number are not read, nor are those of another archive in front of it.") \
  KIND(ENTRY_INVALID, REFUSED, "An entry of the archive is missing, has an invalid size or cannot be read.") \
  KIND(ENTRY_NAME_DIFFERS, CHANGED, "The local header of an entry has a different name from the central directory, which is the one that counts. Only `check` tests this.") \
  KIND(ENTRY_REPLACED, LOST, "Of several entries with the same name only the last one is used.") \
  KIND(ENTRY_SHORT, CHANGED, "An entry is shorter than its stated size. The rest is filled with zeros.") \
  KIND(ENTRY_UNUSED, LOST, "The scene does not refer to an entry of the archive.") \
  KIND(FIELD_UNKNOWN, LOST, "A database has fields that this version does not know. They are left out.") \
  KIND(GEOMETRY_NOT_DRAWN, LOST, "A geometry cannot be drawn, or all parts of the model are too small or too thin to be seen, or without a contour to draw.") \
  KIND(GEOMETRY_TINY, NOTE, "Geometries are smaller than a pixel in the view, in a picture of 1024 x 768 pixels.") \
  KIND(GEOMETRY_TYPE_CHANGED, CHANGED, "A geometry is drawn as another type, because there are no cells of its own type, or all of them were left out.") \
  KIND(GLYPH_MISSING, LOST, "A text has characters that no installed font contains, or that are beyond U+FFFF.") \
  KIND(HIDDEN_BY_DEFAULT, NOTE, "An item is hidden because the value that would show it is missing: the `visibility`, both `showFaces` and `showEdges` of a surface, or the `intensity` of a light.") \
  KIND(HIDDEN_BY_FAULT, LOST, "An item is hidden because the value that would show it cannot be read: the `visibility`, `showFaces`, `showEdges` or `contour` of a surface, or the `intensity` of a light.") \
  KIND(IMAGE_NOT_DRAWN, LOST, "An image cannot be drawn: its pixels do not fit its size, or it is more than 16,384 pixels wide or high.") \
  KIND(IMAGE_WITHOUT_PIXELS, LOST, "An image without pixels is left out.") \
  KIND(ITEM_INVALID, REFUSED, "The values of an item contradict each other.") \
  KIND(ITEM_REPLACED, LOST, "An item is replaced by a later one of the same kind and name.") \
  KIND(KIND_NOT_SHOWN, LOST, "Items of this kind, `vectors` or `streamlines`, are not shown.") \
  KIND(LEGEND_MOVED, CHANGED, "A legend is partly outside the window and is moved into it, or would cover another one and is moved aside.") \
  KIND(LEGEND_NUMBERS_ALIKE, NOTE, "The number format of a legend writes different numbers at neighbouring ticks alike.") \
  KIND(LEGEND_OF_OTHER_COLORS, NOTE, "A legend shows a colormap that is not the one that colours its assembly.") \
  KIND(LEGEND_WITHOUT_COLORMAP, LOST, "A legend without a colormap is left out.") \
  KIND(LEGENDS_OVERLAP, LOST, "A legend covers another one, and there is no room beside it.") \
  KIND(LIGHTS_LIMITED, LOST, "There are too many lights: only the first ones are used.") \
  KIND(NOT_COLORED_BY_ARRAY, CHANGED, "A geometry is not coloured by data: its array is missing, has the wrong size, or is over points where those of its node are coloured over cells, or the reverse.") \
  KIND(NUMBER_INVALID, REFUSED, "A value that must be a number is not one.") \
  KIND(PAYLOAD_DAMAGED, LOST, "Data of the scene graph in an archive cannot be read or are missing.") \
  KIND(PAYLOAD_UNUSED, LOST, "The scene graph in an archive has graphs that are not in its scene, or an archive or database has arrays that no node has.") \
  KIND(PLANES_LIMITED, CHANGED, "There are too many clipping planes: only the first ones are applied.") \
  KIND(POINT_SCALE_ADJUSTED, CHANGED, "The range or the sizes stated for scaling points are unusable: others are used.") \
  KIND(POINTS_NOT_SCALED, CHANGED, "Points that should be scaled by data all have the same size.") \
  KIND(POINTS_WITHOUT_POSITION, LOST, "Points have coordinates that are not finite. These points, and the cells that use them, are not drawn.") \
  KIND(POLYGONS_FOLDED, CHANGED, "Polygons that intersect or touch themselves, are concave and not flat, or are too intricate, are drawn with the wrong shape.") \
  KIND(REFERENCE_LOST, LOST, "A reference to a node outside the written scene is not written.") \
  KIND(REPEATS_LIMITED, LOST, "There are too many repeats: only the first ones are shown.") \
  KIND(ROOT_UNKNOWN, CHANGED, "The root element is not called `scene`, but is read as if it were.") \
  KIND(SCENE_NOT_DRAWN, LOST, "A scene is too large to be drawn, a canvas that shows something is outside the window or has no size, or a database holds no scene.") \
  KIND(SETTINGS_REPLACED, CHANGED, "Geometries with the same name and type share a drawable, but state different settings for it.") \
  KIND(STREAM_INVALID, LOST, "A scene stream, or an array that belongs to one, cannot be read.") \
  KIND(TEXT_CHANGED, CHANGED, "A text is too long and is cut off or drawn smaller, is not valid UTF-8, or has control characters: they are drawn as the characters of Windows-1252 in their places, or not at all.") \
  KIND(TEXT_IGNORED, LOST, "Text in an element that cannot contain text is ignored.") \
  KIND(TEXT_NOT_FRAMED, CHANGED, "A text is so far from the model that it is not taken into account when the view is chosen, and may be outside the picture.") \
  KIND(TEXT_NOT_SHAPED, CHANGED, "A text has characters, such as Arabic or Hebrew ones, that are written from right to left, joined or stacked. They are drawn one after the other from left to right.") \
  KIND(TEXT_RECOLORED, NOTE, "Black text is drawn white, because the background is dark.") \
  KIND(TRANSFORM_REPLACED, LOST, "Of the transforms of assemblies with the same name only the last one is used.") \
  KIND(TRANSFORM_SHARED, CHANGED, "A transform also applies to the items of another assembly with the same name.") \
  KIND(TRANSFORM_UNUSABLE, LOST, "A transform cannot be applied as stated, or what it transforms is not drawn: a scale is zero in some directions, an axis or a mirror has no direction, the number of repeats is missing, or numbers are too small or too large.") \
  KIND(VALUE_IGNORED, CHANGED, "A value that cannot be read or is out of range, or a colour that is missing, is replaced by the default.") \
  KIND(VALUE_UNREADABLE, CHANGED, "A value is not written as its type requires, but the format still gives it a meaning.") \
  KIND(VERSION_TOO_NEW, REFUSED, "An element has a newer version than this program supports.") \
  KIND(VIEW_ADJUSTED, CHANGED, "The direction, the upward direction or the scale of a view is unusable: others are used.") \
  KIND(VIEW_EMPTY, NOTE, "A view shows none of the geometries: they are behind the camera, too close to it, beside the picture, cut away by clipping planes, smaller or thinner than a pixel, seen edge-on or without a contour to draw.") \
  KIND(VIEW_IMPRECISE, CHANGED, "A view shows so small a part of a geometry, or is so far away, that the picture is wrong or empty; or the model reaches so far that what is close to the camera is not drawn or, in a parallel view, that what is behind may cover what is in front: OpenGL computes with limited precision.") \
  KIND(VISIBILITY_PARTIAL, CHANGED, "A visibility between 0 and 1 counts as 1, except for images.") \
  KIND(XML_INVALID, REFUSED, "The scene description is not well-formed XML, is nested too deeply or is too large.")
// clang-format on
