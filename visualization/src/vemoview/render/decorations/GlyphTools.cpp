#include <vtkFreeTypeTools.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkVersion.h>

#include FT_MODULE_H

#include <cstdlib>
#include <utility>

namespace vemo {

namespace {

void* allocateZeros(FT_Memory /*memory*/, long size) {
  return std::calloc(1, static_cast<std::size_t>(size));
}

void* reallocate(FT_Memory /*memory*/, long /*oldSize*/, long size, void* block) {
  return std::realloc(block, static_cast<std::size_t>(size));
}

void release(FT_Memory /*memory*/, void* block) {
  std::free(block);
}

/// Draws texts with a FreeType whose memory is cleared. FreeType 2.12 does not set how full its cache is at
/// first: after what lay in the memory before, it may take the cache for full, and draw the
/// glyph of each letter anew.
class GlyphTools final : public vtkFreeTypeTools {
 public:
  static GlyphTools* New();

  GlyphTools(const GlyphTools&) = delete;
  GlyphTools(GlyphTools&&) = delete;
  GlyphTools& operator=(const GlyphTools&) = delete;
  GlyphTools& operator=(GlyphTools&&) = delete;

 private:
  GlyphTools() {
    if (FT_New_Library(&_memory, &_other) == 0) {
      FT_Add_Default_Modules(_other);
      FT_Set_Default_Properties(_other);
      std::swap(*Library, _other);
    }
  }

  ~GlyphTools() override {
    if (_other != nullptr) {
      ReleaseCacheManager();
      std::swap(*Library, _other);
      FT_Done_Library(_other);
    }
  }

  FT_MemoryRec_ _memory{nullptr, allocateZeros, release, reallocate};
  /// VTK's own, which it closes itself; null if there is no other to use.
  FT_Library _other = nullptr;
};

vtkStandardNewMacro(GlyphTools)

VTK_CREATE_CREATE_FUNCTION(GlyphTools)

class GlyphToolsFactory final : public vtkObjectFactory {
 public:
  static GlyphToolsFactory* New();

  GlyphToolsFactory(const GlyphToolsFactory&) = delete;
  GlyphToolsFactory(GlyphToolsFactory&&) = delete;
  GlyphToolsFactory& operator=(const GlyphToolsFactory&) = delete;
  GlyphToolsFactory& operator=(GlyphToolsFactory&&) = delete;

  const char* GetVTKSourceVersion() override { return VTK_SOURCE_VERSION; }
  const char* GetDescription() override { return "A sound cache of glyphs"; }

 private:
  GlyphToolsFactory() {
    RegisterOverride("vtkFreeTypeTools", "vemo::GlyphTools", GetDescription(), 1,
                     vtkObjectFactoryCreateGlyphTools);
  }
  ~GlyphToolsFactory() override = default;
};

vtkStandardNewMacro(GlyphToolsFactory)

/// When the library is loaded: VTK keeps the first tools that it makes. A host that has made them already,
/// or has tools of its own, keeps these.
[[maybe_unused]] const bool IS_REGISTERED = [] {
  const bool isFirst = vtkObjectFactory::HasOverrideAny("vtkFreeTypeTools") == 0;
  if (isFirst) {
    vtkObjectFactory::RegisterFactory(vtkNew<GlyphToolsFactory>());
  }
  return isFirst;
}();

}  // namespace

}  // namespace vemo
