#include "vemoview/render/vtk/PropGroup.h"

#include <vtkActor.h>
#include <vtkCommand.h>
#include <vtkNew.h>
#include <vtkProp.h>
#include <vtkPropCollection.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <set>
#include <utility>

namespace vemo {

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

PropGroup::PropGroup(vtkRenderer& renderer) : _renderer(&renderer) {}

PropGroup::~PropGroup() {
  if (_renderer == nullptr) {
    return;
  }
  for (const unsigned long observer : _observers) {
    _renderer->RemoveObserver(observer);
  }
  for (const Member& member : _members) {
    _renderer->RemoveViewProp(member.prop);
  }
}

void PropGroup::add(vtkProp* prop) {
  _members.push_back({prop, true});
  // AddViewProp, without its search for the same prop.
  _renderer->GetViewProps()->AddItem(prop);
  prop->AddConsumer(_renderer);
}

void PropGroup::beforeEachRender(std::function<void(vtkRenderer&)> function) {
  vtkNew<FunctionCommand> command;
  command->function = [this, function = std::move(function)](vtkRenderer& renderer) {
    if (_isShown) {
      function(renderer);
    }
  };
  _observers.push_back(_renderer->AddObserver(vtkCommand::StartEvent, command));
}

void PropGroup::show(bool isShown) {
  if (isShown == _isShown) {
    return;
  }
  _isShown = isShown;
  for (Member& member : _members) {
    if (!isShown) {
      member.isShown = member.prop->GetVisibility() != 0;
    }
    member.prop->SetVisibility(isShown && member.isShown);
  }
}

void PropGroup::scalePixels(double factor) {
  _pixelScale *= factor;
  // Instances of a mesh share a property.
  std::set<vtkProperty*> scaled;
  for (const Member& member : _members) {
    auto* const actor = vtkActor::SafeDownCast(member.prop);
    if (actor != nullptr && scaled.insert(actor->GetProperty()).second) {
      scalePixels(*actor->GetProperty(), factor);
    }
  }
}

void PropGroup::scalePixels(vtkProperty& property, double factor) {
  property.SetLineWidth(property.GetLineWidth() * static_cast<float>(factor));
  property.SetPointSize(property.GetPointSize() * static_cast<float>(factor));
}

}  // namespace vemo
