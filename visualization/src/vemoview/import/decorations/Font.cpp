#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/decorations/Font.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>

#include <vtkTextProperty.h>

#include <cstdint>

namespace vemo {

namespace {

std::uint32_t packOpaque(const double* rgb) {
  std::uint32_t packed = 0;
  for (int i = 0; i < 3; ++i) {
    packed = packed << 8U | static_cast<std::uint32_t>(rgb[i] * 255.0);
  }
  return packed << 8U | 0xFFU;
}

}  // namespace

const KeyTable<Font::Style> Font::KEYS({
    key::always<&Font::Style::face>("facename", "the typeface").named(FACES),
    key::always<&Font::Style::bold>("bold", "bold letters"),
    key::always<&Font::Style::italic>("italic", "italic letters"),
    key::always<&Font::Style::shadow>("shadow", "a shadow behind the letters"),
    key::always<&Font::Style::color>("textColor", "its alpha is not used").withoutAlpha(),
});

Font::Font() : _textProperty(vtkSmartPointer<vtkTextProperty>::New()) {
  _textProperty->SetFontFamilyToArial();
  _textProperty->SetColor(0.0, 0.0, 0.0);
}
Font::Font(const Font& other) : Font() {
  *this = other;
}
Font& Font::operator=(const Font& other) {
  _textProperty->ShallowCopy(other._textProperty);
  return *this;
}
Font::~Font() = default;

vtkTextProperty* Font::getTextProperty() const {
  return _textProperty;
}

void Font::read(const QxElement& element, SceneFileReader* reader) {
  Style style;
  KEYS.readElement(style, element, reader);
  _textProperty->SetFontFamilyAsString(FACES[static_cast<int>(style.face)].c_str());
  _textProperty->SetBold(style.bold);
  _textProperty->SetItalic(style.italic);
  _textProperty->SetShadow(style.shadow);
  _textProperty->SetColor(style.color.getRGB().data());
}

void Font::applyTo(lum::TextAttributes& attributes) const {
  attributes.setFontFamilyName(_textProperty->GetFontFamilyAsString());
  attributes.setFontStyle((_textProperty->GetBold() != 0 ? lum::TextAttributes::BOLD : 0) +
                          (_textProperty->GetItalic() != 0 ? lum::TextAttributes::ITALIC : 0) +
                          (_textProperty->GetShadow() != 0 ? lum::TextAttributes::SHADOW : 0));
  attributes.setForegroundColor(packOpaque(_textProperty->GetColor()));
}

}  // namespace vemo
