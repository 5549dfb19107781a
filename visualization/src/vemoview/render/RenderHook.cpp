#include "vemoview/render/RenderHook.h"

#include <vtkCommand.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <utility>

namespace {

class FunctionCommand final : public vtkCommand {
 public:
  static FunctionCommand* New() { return new FunctionCommand; }

  void Execute(vtkObject* caller, unsigned long, void*) override {
    function(static_cast<vtkRenderer&>(*caller));
  }

  std::function<void(vtkRenderer&)> function;
};

}  // namespace

void beforeEachRender(vtkRenderer& renderer, std::function<void(vtkRenderer&)> function) {
  vtkNew<FunctionCommand> command;
  command->function = std::move(function);
  renderer.AddObserver(vtkCommand::StartEvent, command);
}
