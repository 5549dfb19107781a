#include "vemoview/render/decorations/LegendBar.h"

#include "base/Utf8.h"
#include "vemoview/common/VtkForms.h"
#include "vemoview/render/decorations/TextLabel.h"
#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"
#include "vemoview/resolve/values/LegendTicks.h"
#include <vemo/resolve/Decoration.h>

#include <vtkActor2D.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper2D.h>
#include <vtkProperty2D.h>
#include <vtkRenderer.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace vemo {

namespace {

using Pair = Vector<2, double>;

/// In heights of a line: how broad the bar is, how long its ticks are, how far away
/// its numbers, and how far from the edge of the window all of it stays.
constexpr double BREADTH = 1.2;
constexpr double MIN_BREADTH = 0.5;
constexpr double TICK = 0.25;
constexpr double GAP_BESIDE = 0.25;
constexpr double GAP_BELOW = 0.15;
constexpr double MARGIN = 0.25;

/// The least height of a line of text that the bar is made for, as a part of the window's.
constexpr double LEAST_LINE = 0.01;

/// Of a horizontal legend, which has room for few.
constexpr int MAX_LABELS_ACROSS = 32;

/// Lines or faces in pixels.
class FlatShape {
 public:
  explicit FlatShape(PropGroup& group) {
    vtkNew<vtkPolyDataMapper2D> mapper;
    mapper->SetInputData(_data);
    _actor->SetMapper(mapper);
    _actor->PickableOff();
    group.add(_actor);
  }

  vtkProperty2D& property() { return *_actor->GetProperty(); }
  vtkPolyData& data() { return *_data; }

  void clear() {
    _points->Initialize();
    _lines->Initialize();
    _faces->Initialize();
    _data->SetPoints(_points);
    _data->SetLines(_lines);
    _data->SetPolys(_faces);
    _data->Modified();
  }
  void addLine(const Pair& from, const Pair& to) { _lines->InsertNextCell({add(from), add(to)}); }
  void addBox(const Pair& low, const Pair& high) {
    _faces->InsertNextCell({add(low), add({high[0], low[1]}), add(high), add({low[0], high[1]})});
  }

 private:
  vtkIdType add(const Pair& point) { return _points->InsertNextPoint(point[0], point[1], 0.0); }

  vtkNew<vtkPoints> _points;
  vtkNew<vtkCellArray> _lines;
  vtkNew<vtkCellArray> _faces;
  vtkNew<vtkPolyData> _data;
  vtkNew<vtkActor2D> _actor;
};

TextAlignment titleAlignment(bool isVertical) {
  return {isVertical ? TextDecoration::Horizontal::LEFT : TextDecoration::Horizontal::CENTER,
          TextDecoration::Vertical::TOP};
}

/// Beside a vertical bar, below a horizontal one.
TextAlignment labelAlignment(bool isVertical) {
  return {isVertical ? TextDecoration::Horizontal::LEFT : TextDecoration::Horizontal::CENTER,
          isVertical ? TextDecoration::Vertical::CENTER : TextDecoration::Vertical::TOP};
}

class Legend {
 public:
  Legend(const LegendDecoration& legend, PropGroup& group)
      : _legend(legend),
        _group(group),
        _bar(group),
        _lines(group),
        _isVertical(legend.isVertical),
        _title(legend.title, legend.style, titleAlignment(_isVertical), group) {
    for (int i = 0; i < legend.labelCount; ++i) {
      _labels.emplace_back("", legend.style, labelAlignment(_isVertical), group);
    }
    const auto channel = [&](std::size_t i) { return static_cast<double>(legend.style.rgba[i]) / 255.0; };
    _lines.property().SetColor(channel(0), channel(1), channel(2));
  }

  void layOut(vtkRenderer& renderer) {
    const Pair canvas = sizeInPixels(renderer);
    const Vector<4, double> layoutInput{canvas[0], canvas[1], windowHeight(renderer), _group.getPixelScale()};
    if (layoutInput == _layoutInput) {
      return;
    }
    _layoutInput = layoutInput;
    _pixel = std::max(1.0, std::round(layoutInput[3]));
    const auto inPixels = [&canvas](const Pair& place) {
      return Pair{place[0] * canvas[0], place[1] * canvas[1]};
    };
    const Box room{inPixels(_legend.roomLow), inPixels(_legend.roomHigh)};
    const auto [low, high] =
        fit({inPixels(_legend.position), inPixels(_legend.position + _legend.size)}, room, renderer);
    placeTitle(low, high, room, renderer);
    placeBar(low, high);
    drawBar();
    drawLines();
    for (std::size_t i = 0; i < _ticks.size(); ++i) {
      _labels[i].moveTo(labelPlace(_ticks[i]));
    }
  }

 private:
  struct Box {
    Pair low;
    Pair high;

    Pair size() const { return high - low; }
  };

  /// Writes title and numbers so that they fit, and returns the place of all: the wanted
  /// one if it has room for readable text, or else a larger one within the room.
  Box fit(const Box& wantedPlace, const Box& room, vtkRenderer& renderer) {
    constexpr double MIN_READABLE = 0.03;
    constexpr double MIN_PIXELS = 1.0;
    const double wanted = _legend.lineHeight * _layoutInput[2];
    const double readable = std::min(wanted, MIN_READABLE * _layoutInput[2]);
    Pair low = wantedPlace.low;
    Pair size = wantedPlace.size();
    Pair needed;
    // Sizes grow about as lines do: this takes few steps.
    const auto shrink = [&](double first, double last, const Pair& most) {
      for (_line = first;;) {
        needed = write(low, size, room, renderer);
        const double share = std::min(most[0] / needed[0], most[1] / needed[1]);
        if (share >= 1.0 || _line <= last) {
          return share >= 1.0;
        }
        _line = std::max(std::clamp(share, 0.7, 0.97) * _line, last);
      }
    };
    if (!shrink(wanted, readable, size)) {
      shrink(readable, MIN_PIXELS, room.size());
    }
    for (std::size_t i = 0; i < 2; ++i) {
      size[i] = std::min(std::max(size[i], needed[i]), room.size()[i]);
      low[i] = std::min(low[i], room.high[i] - size[i]);
    }
    return {low, {low[0] + size[0], low[1] + size[1]}};
  }

  /// Writes title and numbers, and returns the room that they need with a short bar.
  Pair write(const Pair& low, const Pair& size, const Box& room, vtkRenderer& renderer) {
    const double widest = room.size()[0] - _line / 2.0;
    wrapTitle(widest - (_isVertical ? low[0] - room.low[0] : 0.0), widest, renderer);
    const Pair title = _title.getSize(renderer);
    _titleHeight = title[1] > 0.0 ? title[1] + _line / 3.0 : 0.0;
    setLabels(_isVertical ? size[1] - _titleHeight : size[0], renderer);
    const Pair bar =
        _isVertical
            ? Pair{breadth() + (TICK + GAP_BESIDE + MARGIN) * _line + _labelExtent, 3.0 * _line}
            : Pair{2.0 * _labelExtent + _line, (MIN_BREADTH + TICK + GAP_BELOW + 1.0 + MARGIN) * _line};
    // A title need not fit beside the bar, but into the room.
    const double overhang = title[0] > widest ? title[0] + _line / 2.0 : 0.0;
    return {std::max(bar[0], overhang), bar[1] + _titleHeight};
  }

  double titleWidth(const std::string& text, double line, vtkRenderer& renderer) {
    _title.setText(text);
    _title.setLineHeight(line, renderer);
    return _title.getSize(renderer)[0];
  }

  /// Of a part of the title, which is written once: widths grow as lines do, and a title may
  /// have hundreds of words.
  double partWidth(const std::string& part, vtkRenderer& renderer) {
    constexpr double LINE = 20.0;
    const auto [width, isNew] = _partWidths.try_emplace(part);
    if (isNew) {
      width->second = titleWidth(part, LINE, renderer) / LINE;
    }
    return _line * width->second;
  }

  /// Breaks a title that is wider than there is room, between words; within a word
  /// only where that is wider than a line can be.
  void wrapTitle(double room, double widest, vtkRenderer& renderer) {
    if (titleWidth(_legend.title, _line, renderer) <= room) {
      return;
    }
    const double blank = partWidth("n n", renderer) - partWidth("nn", renderer);
    std::string wrapped;
    double width = 0.0;
    std::istringstream words(_legend.title);
    for (std::string word; words >> word;) {
      const double wordWidth = partWidth(word, renderer);
      const bool isFirst = wrapped.empty();
      const bool fits = !isFirst && width + blank + wordWidth <= room;
      width = fits ? width + blank + wordWidth : wordWidth;
      wrapped.append(isFirst ? 0 : 1, fits ? ' ' : '\n').append(brokenWord(word, wordWidth, widest));
    }
    titleWidth(wrapped, _line, renderer);
  }

  /// A word in lines of about the same length.
  static std::string brokenWord(const std::string& word, double width, double room) {
    const double lines = std::ceil(1.1 * width / std::max(room, 1.0));
    if (lines < 2.0) {
      return word;
    }
    const auto length =
        std::max<std::size_t>(1, static_cast<std::size_t>(static_cast<double>(word.size()) / lines));
    std::string broken;
    std::size_t written = 0;
    for (const char byte : word) {
      if (!isContinuationByte(byte) && written >= length) {
        broken += '\n';
        written = 0;
      }
      broken += byte;
      ++written;
    }
    return broken;
  }

  void placeTitle(const Pair& low, const Pair& high, const Box& room, vtkRenderer& renderer) {
    const double width = _title.getSize(renderer)[0];
    // A title above a horizontal bar is centred at its position.
    const double before = _isVertical ? 0.0 : width / 2.0;
    const double wanted = _isVertical ? low[0] : (low[0] + high[0]) / 2.0;
    const double margin = MARGIN * _line;
    const double least = room.low[0] + margin + before;
    _title.moveTo({std::max(least, std::min(wanted, room.high[0] - margin - width + before)), high[1]});
  }

  /// Chooses as many ticks as have room along the bar, and writes their labels.
  void setLabels(double length, vtkRenderer& renderer) {
    const double most = _isVertical ? std::max(length / _line, 2.0) : static_cast<double>(MAX_LABELS_ACROSS);
    for (auto count = static_cast<int>(std::min(static_cast<double>(_labels.size()), most));; --count) {
      _ticks = makeLegendTicks(_legend.table.range, _legend.table.isLog10, count);
      const std::vector<std::string> texts = labelsOf(_ticks, _legend.labelFormat);
      _labelExtent = 0.0;
      for (std::size_t i = 0; i < _labels.size(); ++i) {
        if (i >= _ticks.size()) {
          _labels[i].hide();
          continue;
        }
        _labels[i].setText(texts[i]);
        _labels[i].setLineHeight(_line, renderer);
        _labelExtent = std::max(_labelExtent, _labels[i].getSize(renderer)[0]);
      }
      const double extent = _isVertical ? _line : _labelExtent + _line / 2.0;
      if (count <= 2 || static_cast<double>(_ticks.size()) * extent <= length) {
        return;
      }
    }
  }

  /// Across the bar, which is seen however small the text is.
  double breadth() const {
    const bool isSmall = _legend.lineHeight < LEAST_LINE;
    return BREADTH * (isSmall ? LEAST_LINE * _layoutInput[2] : _line);
  }

  /// Half of each label at the ends of the bar lies beyond the bar.
  void placeBar(const Pair& low, const Pair& high) {
    const auto snap = [this](double& place) { place = pixelStart(place); };
    _low = low;
    _high = {high[0], high[1] - _titleHeight};
    if (_isVertical) {
      _low[1] += _line / 2.0;
      _high[1] -= _line / 2.0;
      _high[0] = _low[0] + std::min(breadth(), (high[0] - low[0]) / 2.0);
    } else {
      const double inset = std::min(_labelExtent / 2.0, (high[0] - low[0]) / 3.0);
      _low[0] += inset;
      _high[0] -= inset;
      _low[1] = std::max(_high[1] - breadth(), low[1] + (TICK + GAP_BELOW + 1.0) * _line);
    }
    std::ranges::for_each(_low, snap);
    std::ranges::for_each(_high, snap);
    // The colours are seen in the smallest window, at the cost of the numbers.
    _high[0] = std::max(_high[0], _low[0] + _pixel);
    _low[1] = std::min(_low[1], _high[1] - _pixel);
  }

  /// A point of the bar, from 0 to 1 along it.
  Pair along(double place, bool isFarSide) const {
    return _isVertical ? Pair{isFarSide ? _high[0] : _low[0], _low[1] + place * (_high[1] - _low[1])}
                       : Pair{_low[0] + place * (_high[0] - _low[0]), isFarSide ? _low[1] : _high[1]};
  }

  Pair tickEnd(const LegendTick& tick) const {
    Pair end = along(tick.place, true);
    (_isVertical ? end[0] : end[1]) += (_isVertical ? TICK : -TICK) * _line;
    return end;
  }

  Pair labelPlace(const LegendTick& tick) const {
    Pair place = tickEnd(tick);
    (_isVertical ? place[0] : place[1]) += (_isVertical ? GAP_BESIDE : -GAP_BELOW) * _line;
    if (_isVertical) {
      // Digits are centred above the middle of a line, which has room for
      // descenders.
      place[1] -= 0.09 * _line;
    }
    return place;
  }

  void drawBar() {
    constexpr vtkIdType MAX_FIELDS = 1024;
    const std::vector<std::uint8_t>& rgba = _legend.table.rgba.get();
    const auto colors = static_cast<vtkIdType>(rgba.size() / RGBA_CHANNELS);
    const vtkIdType fields = std::clamp<vtkIdType>(colors, 1, MAX_FIELDS);
    vtkNew<vtkUnsignedCharArray> bytes;
    bytes->SetNumberOfComponents(static_cast<int>(RGBA_CHANNELS));
    _bar.clear();
    for (vtkIdType field = 0; field < fields; ++field) {
      const double first = static_cast<double>(field) / static_cast<double>(fields);
      const double last = static_cast<double>(field + 1) / static_cast<double>(fields);
      const Pair a = along(first, !_isVertical);
      const Pair b = along(last, _isVertical);
      _bar.addBox(a, b);
      const auto color = RGBA_CHANNELS * static_cast<std::size_t>(field * colors / fields);
      for (std::size_t channel = 0; channel < RGBA_CHANNELS; ++channel) {
        bytes->InsertNextValue(rgba[color + channel]);
      }
    }
    _bar.data().GetCellData()->SetScalars(bytes);
  }

  void drawLines() {
    _lines.clear();
    // Around the bar: lines within it would be hidden by it.
    const Pair low{_low[0] - _pixel, _low[1] - _pixel};
    addLine(low, {_high[0], low[1]});
    addLine({_high[0], low[1]}, _high);
    addLine(_high, {low[0], _high[1]});
    addLine({low[0], _high[1]}, low);
    for (const LegendTick& tick : _ticks) {
      addLine(along(tick.place, true), tickEnd(tick));
    }
    const double pixels = std::max(1.0, std::round(_layoutInput[2] / (700.0 * _pixel)));
    _lines.property().SetLineWidth(static_cast<float>(pixels * _pixel));
  }

  /// Between the middles of pixels, where thin lines are sharp.
  void addLine(const Pair& from, const Pair& to) {
    const auto middle = [this](const Pair& place) {
      return Pair{pixelStart(place[0]) + _pixel / 2.0, pixelStart(place[1]) + _pixel / 2.0};
    };
    _lines.addLine(middle(from), middle(to));
  }

  double pixelStart(double place) const { return std::floor(place / _pixel) * _pixel; }

  LegendDecoration _legend;
  const PropGroup& _group;
  FlatShape _bar;
  FlatShape _lines;
  bool _isVertical;
  TextLabel _title;
  std::vector<TextLabel> _labels;

  /// What the layout was made for: the canvas's size and the window's height, in
  /// pixels, as everything below, and the pixel scale of the group.
  Vector<4, double> _layoutInput;
  /// The width of a pixel of the picture, which may be drawn larger.
  double _pixel = 1.0;
  double _line = 0.0;
  double _titleHeight = 0.0;
  /// Of parts of the title, in heights of a line.
  std::map<std::string, double> _partWidths;
  /// The width of the widest label.
  double _labelExtent = 0.0;
  std::vector<LegendTick> _ticks;
  /// The corners of the bar.
  Pair _low;
  Pair _high;
};

}  // namespace

void addLegend(const LegendDecoration& legend, PropGroup& group) {
  const auto laidOut = std::make_shared<Legend>(legend, group);
  group.beforeEachRender([laidOut](vtkRenderer& drawn) { laidOut->layOut(drawn); });
}

}  // namespace vemo
