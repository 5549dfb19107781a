#include "scenegraph/io/codec/ArrayBinder.h"

#include "scenegraph/ArrayType.h"
#include "scenegraph/inspect/NodeDescription.h"
#include <vemo/scenegraph/io/FileError.h>

#include <vtkTypeInt32Array.h>
#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace lum::io {

namespace {

/// The cell array over offsets and connectivity; null when they are not what
/// cell arrays hold.
vtkSmartPointer<vtkCellArray> makeCells(vtkDataArray& offsets, vtkDataArray& connectivity) {
  if (offsets.GetNumberOfComponents() != 1 || connectivity.GetNumberOfComponents() != 1) {
    return nullptr;
  }
  auto cells = vtkSmartPointer<vtkCellArray>::New();
  const auto take = [&]<class Array>(Array* first) {
    auto* second = dynamic_cast<Array*>(&connectivity);
    if (first == nullptr || second == nullptr) {
      return false;
    }
    cells->SetData(first, second);
    return true;
  };
  const bool taken =
      take(dynamic_cast<vtkTypeInt32Array*>(&offsets)) || take(dynamic_cast<vtkTypeInt64Array*>(&offsets));
  return taken ? cells : nullptr;
}

}  // namespace

void ArrayBinder::clear(const Field& field) {
  if (const auto* array = std::get_if<vtkSmartPointer<vtkDataArray>*>(&field.value)) {
    **array = nullptr;
  } else if (const auto* cells = std::get_if<vtkSmartPointer<vtkCellArray>*>(&field.value)) {
    **cells = nullptr;
  } else if (const auto* table = std::get_if<ArrayTable*>(&field.value)) {
    (*table)->clear();
  }
}

void ArrayBinder::clearAll(const FieldList& fields) {
  for (const Field& field : fields) {
    clear(field);
  }
}

void ArrayBinder::expectFor(Node& node, bool isNew) {
  const auto number = static_cast<std::uint32_t>(_waiting.size());
  if (isNew) {
    // Of a former node at this address, which is gone.
    _latest.erase(&node);
  } else {
    _latest[&node] = number;
  }
  _waiting.push_back({Ptr<Node>(&node), _uses.size(), 0, 0});
}

ArrayBinder::Chunk& ArrayBinder::findOrMake(std::size_t chunk) {
  _pages.resize(std::max(_pages.size(), chunk / PAGE_SIZE + 1));
  auto& page = _pages[chunk / PAGE_SIZE];
  page.resize(PAGE_SIZE);
  return page[chunk % PAGE_SIZE];
}

void ArrayBinder::expect(std::size_t field, std::size_t chunk) {
  Chunk& expected = findOrMake(chunk);
  if (expected.isReleased) {
    throw FileError(FileIoStatus::ReadError, fmt::format("Array {} was released before", chunk));
  }
  ++expected.uses;
  Waiting& waiting = _waiting.back();
  _uses.push_back({static_cast<std::uint32_t>(chunk), static_cast<std::uint32_t>(field),
                   static_cast<std::uint32_t>(_waiting.size() - 1)});
  ++waiting.useCount;
  waiting.missing += expected.isThere ? 0 : 1;
}

void ArrayBinder::release(std::size_t chunk) {
  findOrMake(chunk).isReleased = true;
  releaseUnused(chunk);
}

void ArrayBinder::releaseUnused(std::size_t chunk) {
  Chunk& unused = findOrMake(chunk);
  if (!unused.isReleased || unused.uses > 0 || unused.array == nullptr) {
    return;
  }
  unused.array = nullptr;
  // In cells it is before or after the other array of its pair.
  const auto number = static_cast<std::uint32_t>(chunk);
  for (auto use = findUses(chunk); use != _byChunk.end() && _uses[*use].chunk == number; ++use) {
    if (*use > 0) {
      _sharedCells.erase({_uses[*use - 1].chunk, number});
    }
    if (*use + 1 < _uses.size()) {
      _sharedCells.erase({number, _uses[*use + 1].chunk});
    }
  }
}

void ArrayBinder::filter(const std::function<bool(Node& node, std::span<const std::size_t> chunks)>& wants) {
  const std::vector<Use> uses = std::exchange(_uses, {});
  const std::vector<Waiting> waiting = std::exchange(_waiting, {});
  std::ranges::for_each(uses, [this](const Use& use) { --findOrMake(use.chunk).uses; });
  std::vector<std::size_t> chunks;
  for (const Waiting& each : waiting) {
    const auto used = std::span(uses).subspan(each.firstUse, each.useCount);
    chunks.clear();
    std::ranges::transform(used, std::back_inserter(chunks), &Use::chunk);
    if (wants(*each.node, chunks)) {
      expectFor(*each.node, true);
      std::ranges::for_each(used, [this](const Use& use) { expect(use.field, use.chunk); });
    }
  }
}

void ArrayBinder::sortUses() {
  if (_byChunk.size() == _uses.size()) {
    return;
  }
  for (auto i = static_cast<std::uint32_t>(_byChunk.size()); i < _uses.size(); ++i) {
    _byChunk.push_back(i);
  }
  const auto chunkOf = [this](std::uint32_t use) { return _uses[use].chunk; };
  if (!std::ranges::is_sorted(_byChunk, {}, chunkOf)) {
    std::ranges::stable_sort(_byChunk, {}, chunkOf);
  }
}

std::vector<std::uint32_t>::const_iterator ArrayBinder::findUses(std::size_t chunk) {
  sortUses();
  return std::ranges::lower_bound(_byChunk, chunk, {},
                                  [this](std::uint32_t use) { return std::size_t{_uses[use].chunk}; });
}

std::vector<std::size_t> ArrayBinder::getExpected() {
  sortUses();
  std::vector<std::size_t> chunks;
  for (const std::uint32_t use : _byChunk) {
    if (chunks.empty() || chunks.back() != _uses[use].chunk) {
      chunks.push_back(_uses[use].chunk);
    }
  }
  return chunks;
}

std::string ArrayBinder::provide(std::size_t chunk, vtkDataArray& array) {
  Chunk& provided = findOrMake(chunk);
  provided.array = &array;
  provided.isThere = true;
  ++_arrayCount;
  std::string fault;
  for (auto use = findUses(chunk); use != _byChunk.end() && _uses[*use].chunk == chunk; ++use) {
    const std::uint32_t waiting = _uses[*use].waiting;
    if (--_waiting[waiting].missing == 0) {
      const std::string found = complete(waiting);
      fault = fault.empty() ? found : fault;
    }
  }
  releaseUnused(chunk);
  return fault;
}

std::string ArrayBinder::provideKnown() {
  std::string fault;
  for (; _firstUnknown < _waiting.size(); ++_firstUnknown) {
    if (_waiting[_firstUnknown].missing == 0) {
      const std::string found = complete(static_cast<std::uint32_t>(_firstUnknown));
      fault = fault.empty() ? found : fault;
    }
  }
  return fault;
}

std::string ArrayBinder::complete(std::uint32_t number) {
  std::string fault = giveArrays(number);
  const Waiting& done = _waiting[number];
  for (std::size_t use = done.firstUse; use < done.firstUse + done.useCount; ++use) {
    --findOrMake(_uses[use].chunk).uses;
    releaseUnused(_uses[use].chunk);
  }
  return fault;
}

std::string ArrayBinder::giveArrays(std::uint32_t number) {
  Waiting& waiting = _waiting[number];
  const Ptr<Node> node = std::move(waiting.node);
  if (!node) {
    return {};
  }
  const auto latest = _latest.find(node.get());
  if (latest != _latest.end() && latest->second != number) {
    return {};
  }
  FieldList fields;
  node->listFields(fields);
  // A node that changed has its former arrays until now.
  clearAll(fields);
  std::string fault = putArrays(waiting, fields);
  if (fault.empty()) {
    fault = _check.findFault(*node);
  }
  if (fault.empty()) {
    return {};
  }
  clearAll(fields);
  return describeNode(*node) + ": " + fault;
}

/// The fault of two arrays that are no cells; else empty, and the cells.
std::string ArrayBinder::findCells(std::uint32_t offsets, std::uint32_t connectivity,
                                   vtkSmartPointer<vtkCellArray>& cells) {
  const auto uses = findUses(connectivity);
  const bool isShared = _byChunk.end() - uses > 1 && _uses[uses[1]].chunk == connectivity;
  vtkSmartPointer<vtkCellArray> unshared;
  auto& made = isShared ? _sharedCells[{offsets, connectivity}] : unshared;
  // Few arrays make a great many pairs.
  if (_sharedCells.size() > _arrayCount) {
    return "there are more pairs of offsets and connectivity than arrays";
  }
  if (!made) {
    made = makeCells(getArray(offsets), getArray(connectivity));
  }
  cells = made;
  return cells ? "" : "offsets and connectivity are not integers of one type";
}

std::string ArrayBinder::putArrays(const Waiting& waiting, FieldList& fields) {
  const auto end = _uses.begin() + static_cast<std::ptrdiff_t>(waiting.firstUse + waiting.useCount);
  for (auto use = end - static_cast<std::ptrdiff_t>(waiting.useCount); use != end; ++use) {
    vtkDataArray& array = getArray(use->chunk);
    const Field& field = fields[use->field];
    if (const auto* single = std::get_if<vtkSmartPointer<vtkDataArray>*>(&field.value)) {
      **single = &array;
    } else if (const auto* table = std::get_if<ArrayTable*>(&field.value)) {
      (*table)->emplace_back(&array);
    } else {
      const std::uint32_t offsets = use->chunk;
      ++use;
      vtkSmartPointer<vtkCellArray> cells;
      const std::string fault = findCells(offsets, use->chunk, cells);
      if (!fault.empty()) {
        return std::string(field.name) + ": " + fault;
      }
      *std::get<vtkSmartPointer<vtkCellArray>*>(field.value) = cells;
    }
  }
  return {};
}

}  // namespace lum::io
