#include <vemo/import/QxElement.h>
#include <vemo/import/items/Font.h>
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

void Font::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  const std::string* const face = element.findAttribute(XML_ATTRIB_FACE_NAME);
  if (face != nullptr && *face == FACE_COURIER) {
    _textProperty->SetFontFamilyToCourier();
  } else if (face != nullptr && *face == FACE_TIMES) {
    _textProperty->SetFontFamilyToTimes();
  } else {
    _textProperty->SetFontFamilyToArial();
  }
  _textProperty->SetBold(element.getBool(XML_ATTRIB_BOLD));
  _textProperty->SetItalic(element.getBool(XML_ATTRIB_ITALIC));
  _textProperty->SetShadow(element.getBool(XML_ATTRIB_SHADOW));
  auto rgb = element.getColor(XML_ATTRIB_TEXT_COLOR).getRGB();
  _textProperty->SetColor(rgb.data());
}

void Font::applyTo(lum::TextAttributes& attributes) const {
  attributes.setFontFamilyName(_textProperty->GetFontFamilyAsString());
  attributes.setFontStyle((_textProperty->GetBold() != 0 ? lum::TextAttributes::BOLD : 0) +
                          (_textProperty->GetItalic() != 0 ? lum::TextAttributes::ITALIC : 0) +
                          (_textProperty->GetShadow() != 0 ? lum::TextAttributes::SHADOW : 0));
  attributes.setForegroundColor(packOpaque(_textProperty->GetColor()));
}

}  // namespace vemo
