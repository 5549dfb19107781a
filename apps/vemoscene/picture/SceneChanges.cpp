#include "picture/SceneChanges.h"

#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/edit/DataColoring.h>
#include <vemo/scenegraph/edit/Items.h>

#include <CLI/CLI.hpp>

namespace vemo {

namespace {

/// As in "front|back|left".
std::string listViews(const char* separator) {
  std::string text;
  for (const char* const name : lum::EnumeratorsOf<lum::StandardView>::NAMES) {
    text += (text.empty() ? "" : separator) + std::string(name);
  }
  return text;
}

lum::StandardView parseView(const std::string& text) {
  const auto names = lum::EnumeratorsOf<lum::StandardView>::NAMES;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (text == names[i]) {
      return static_cast<lum::StandardView>(i);
    }
  }
  throw InvalidValue('"' + text + "\" is not one of the views " + listViews(", "));
}

void addItems(CLI::App& app, const char* name, std::vector<std::string>& items, const char* description) {
  app.add_option_function<std::vector<std::string>>(
         name, [&items](const std::vector<std::string>& texts) { items = texts; }, description)
      ->option_text("ITEM")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

template <class Use>
void forEachItem(lum::SceneNode& scene, const std::vector<std::string>& items, Use&& use) {
  for (const std::string& item : items) {
    for (lum::Drawable* const drawable : lum::findItems(scene, item)) {
      use(*drawable);
    }
  }
}

}  // namespace

void addSceneChanges(CLI::App& app, SceneChanges& changes) {
  const auto add = [&app](const char* name, const std::string& value, const std::string& description,
                          auto&& use) { return addValueOption(app, name, value, description, use); };
  CLI::Option* const view =
      add("--view", listViews("|"),
          "Look along an axis at all visible parts of the model, in parallel projection; z is up, and x "
          "points right from the front",
          [&changes](const std::string& text) { changes.view = parseView(text); });
  add("--camera", "NUMBERS",
      "Look from a position at a focal point with a view-up vector, nine numbers as in "
      "0,-10,5,0,0,0,0,0,1; \",angle=DEGREES\" after them is the angle of perspective (default 30), "
      "\",scale=LENGTH\" half the height of a parallel view",
      [&changes](const std::string& text) { changes.camera = parseCamera(text); })
      ->excludes(view);
  addItems(app, "--fit", changes.fitted,
           "Let an item fill the picture, without hiding others; ITEM is a name or path that info prints, "
           "also the end "
           "of a path such as wing/flap");
  addItems(app, "--hide", changes.hidden, "Hide an item with all that it contains");
  addItems(app, "--show", changes.shown,
           "Show an item with all that it contains, after hiding others; of hidden items that contain it, "
           "nothing else is shown");
  add("--array", "NAME", "Colour all geometry that has this array over its points or cells by it",
      [&changes](const std::string& text) { changes.array = text; });
  add("--range", "MIN:MAX", "The low and high end of the colours (default: all values of the --array)",
      [&changes](const std::string& text) { changes.range = parseRange(text); });
  add("--background", "RRGGBB", "The background's colour, or two for top and bottom as in ffffff,a0a0a0",
      [&changes](const std::string& text) { changes.background = parseBackground(text); });
}

void applyChanges(const SceneChanges& changes, lum::SceneNode& scene, RenderOptions& options) {
  forEachItem(scene, changes.hidden, [](lum::Drawable& item) { lum::setShown(item, false); });
  forEachItem(scene, changes.shown, lum::revealAll);
  if (changes.array) {
    lum::colorByArray(scene, *changes.array, changes.range);
  } else if (changes.range) {
    lum::setColorRange(scene, *changes.range);
  }
  if (changes.background) {
    lum::setBackground(scene, changes.background->first, changes.background->second);
  }
  if (changes.view) {
    lum::setView(scene, *changes.view);
    options.fitsModel = true;
  }
  if (changes.camera) {
    lum::setView(scene, changes.camera->viewpoint);
    options.viewAngle = changes.camera->angle;
  }
  forEachItem(scene, changes.fitted, [&options](lum::Drawable& item) { options.fitted.push_back(&item); });
}

}  // namespace vemo
