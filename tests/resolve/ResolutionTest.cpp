// What is seen of scenes, and what findings say of it: by the files in
// tests/data/expected/resolution. Each holds scenes of one kind:
//
//     ==== What is special about the first scene
//     TextDrawable
//       AnnotationAttributes {"text": "t"}
//     ----
//     text-recolored: ... | ModelCanvas/DrawableCollection/TextDrawable
//     model from [0.0,0.0] to [1.0,1.0]
//       ...
//
// The lines are those of support/GraphReader.h, for a scene that is seen as
// SceneBuilder says.
//
// With VEMO_UPDATE_EXPECTED set, the tests write what stands behind the dashes.

#include "resolve/ResolvedText.h"
#include "support/Expected.h"
#include "support/GraphReader.h"
#include "support/SceneBuilder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/Findings.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

std::string resultOf(const std::string& lines) {
  const SceneBuilder scene;
  addNodes(scene.node(), lines);
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  const std::string seen = resolvedText(resolveScene(scene.node()));
  std::string text;
  for (const Finding& finding : findings) {
    text += finding.getKind().name + ": " + finding.text + " | " + finding.nodePath + "\n";
  }
  return text + seen;
}

class ResolutionTest : public testing::TestWithParam<std::string> {};

TEST_P(ResolutionTest, IsAsExpected) {
  expectCases("resolution/" + GetParam() + ".txt", &resultOf);
}

INSTANTIATE_TEST_SUITE_P(, ResolutionTest, testing::ValuesIn(expectedFiles("resolution")),
                         [](const auto& file) { return file.param; });

}  // namespace

}  // namespace vemo
