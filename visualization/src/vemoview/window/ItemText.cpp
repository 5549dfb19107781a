#include "vemoview/window/ItemText.h"

#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <QTextDocument>
#include <utility>

namespace vemo {

QString toText(std::string_view text) {
  return QString::fromStdString(toPrintableLine(text));
}

QString toToolTip(const QString& text) {
  return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

QString toMenuText(std::string_view text) {
  return toText(text).replace('&', "&&");
}

QString kindOf(const lum::Drawable& drawable) {
  static constexpr std::pair<std::string_view, const char*> KINDS[] = {
      {"DrawableCollection", "Group"},   {"SurfaceDrawable", "Surface"}, {"PolyLineDrawable", "Lines"},
      {"PointSphereDrawable", "Points"}, {"TextDrawable", "Text"},       {"ImageDrawable", "Image"},
      {"LegendDrawable", "Legend"},      {"TriadDrawable", "Axes"}};
  for (const auto& [className, kind] : KINDS) {
    if (drawable.className() == className) {
      return kind;
    }
  }
  return toText(drawable.className());
}

QString nameOf(const ItemTree& items, int item) {
  const lum::Drawable& drawable = *items[item].drawable;
  const std::string& name = items.getName(item);
  return name.empty() || name == drawable.className() ? kindOf(*items[item].content) : toText(name);
}

QString pathOf(const ItemTree& items, int item) {
  const int parent = items[item].parent;
  return parent == ItemTree::NONE ? nameOf(items, item) : pathOf(items, parent) + " / " + nameOf(items, item);
}

QString countText(std::int64_t count) {
  return QString::fromStdString(lum::groupDigits(count));
}

}  // namespace vemo
