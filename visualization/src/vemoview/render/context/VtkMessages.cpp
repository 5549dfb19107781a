#include "vemoview/render/context/VtkMessages.h"

#include <vemo/scenegraph/Logger.h>

#include <vtkObjectFactory.h>

#include <string_view>

namespace vemo {

namespace {

class LoggingOutputWindow : public vtkOutputWindow {
  vtkTypeMacro(LoggingOutputWindow, vtkOutputWindow)

 public:
  static LoggingOutputWindow* New();

  void DisplayText(const char* text) override { VEMO_LOG_INFO(line(text)); }
  void DisplayErrorText(const char* text) override { VEMO_LOG_ERROR(line(text)); }
  void DisplayWarningText(const char* text) override { VEMO_LOG_WARNING(line(text)); }
  void DisplayGenericWarningText(const char* text) override { VEMO_LOG_WARNING(line(text)); }
  void DisplayDebugText(const char* text) override { VEMO_LOG_INFO(line(text)); }

 private:
  /// VTK's messages end with line breaks.
  static std::string_view line(const char* text) {
    const std::string_view whole = text == nullptr ? "" : text;
    return whole.substr(0, whole.find_last_not_of('\n') + 1);
  }
};
vtkStandardNewMacro(LoggingOutputWindow)

}  // namespace

VtkMessages::VtkMessages() : _former(vtkOutputWindow::GetInstance()) {
  vtkOutputWindow::SetInstance(vtkSmartPointer<LoggingOutputWindow>::New());
}

VtkMessages::~VtkMessages() {
  vtkOutputWindow::SetInstance(_former);
}

}  // namespace vemo
