#include "vtkVemoSceneReader.h"

#include "BlockData.h"
#include "BlockShares.h"
#include "FieldDataWriter.h"
#include "ProcessGroup.h"
#include "SceneCollection.h"
#include "SceneVersion.h"
#include "vtkCommand.h"
#include "vtkDataArraySelection.h"
#include "vtkFieldData.h"
#include "vtkInformation.h"
#include "vtkInformationVector.h"
#include "vtkObjectFactory.h"
#include "vtkPartitionedDataSetCollection.h"
#include "vtkStreamingDemandDrivenPipeline.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

struct vtkVemoSceneReader::State {
  /// Tells whether a file is still the same.
  struct FileStamp {
    std::string path;
    decltype(stat::st_dev) device = 0;
    decltype(stat::st_ino) number = 0;
    decltype(stat::st_size) size = 0;
    // No program can set when a file changed last, unlike when it was modified.
    decltype(timespec::tv_sec) seconds = 0;
    decltype(timespec::tv_nsec) nanoseconds = 0;

    bool operator==(const FileStamp&) const = default;
  };

  static FileStamp stampOf(const std::string& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return {path,           status.st_dev,         status.st_ino,
            status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
  }

  /// From before the outline was made.
  FileStamp stamp;
  vemo::SceneOutline outline;
  std::uint64_t version = 0;
  /// Why there is no outline.
  std::optional<std::string> failure;
  /// The latest warning, which is not repeated.
  std::string warning;
};

namespace {

/// The share of the time that is for reading; the rest is for what is made of it.
constexpr double READ = 0.8;

/// How often an update reads a file that is replaced meanwhile.
constexpr int MAX_ATTEMPTS = 2;

/// In one message.
constexpr std::size_t MAX_WARNINGS = 20;

/// The choices there are now, each with its former state or else that of the scene.
void updateChoices(const vemo::SceneOutline& outline, vtkDataArraySelection& selection) {
  std::vector<std::pair<std::string, bool>> choices;
  std::map<std::string, std::size_t> places;
  for (std::size_t i = 0; i < outline.blocks.size(); ++i) {
    const auto [place, isNew] = places.try_emplace(outline.choices[i], choices.size());
    if (isNew) {
      choices.emplace_back(outline.choices[i], false);
    }
    choices[place->second].second |= outline.blocks[i].isVisible;
  }
  for (auto& [name, isOn] : choices) {
    isOn = selection.ArrayExists(name.c_str()) ? selection.ArrayIsEnabled(name.c_str()) : isOn;
  }
  selection.RemoveAllArrays();
  for (const auto& [name, isOn] : choices) {
    selection.AddArray(name.c_str(), isOn);
  }
}

std::vector<std::size_t> chosenBlocks(const vemo::SceneOutline& outline, vtkDataArraySelection& selection) {
  std::set<std::string> enabled;
  for (int i = 0; i < selection.GetNumberOfArrays(); ++i) {
    if (selection.GetArraySetting(i) != 0) {
      enabled.insert(selection.GetArrayName(i));
    }
  }
  std::vector<std::size_t> chosen;
  for (std::size_t i = 0; i < outline.blocks.size(); ++i) {
    if (enabled.contains(outline.choices[i])) {
      chosen.push_back(i);
    }
  }
  return chosen;
}

}  // namespace

vtkStandardNewMacro(vtkVemoSceneReader);

vtkVemoSceneReader::vtkVemoSceneReader() {
  this->SetNumberOfInputPorts(0);
  this->Blocks->AddObserver(vtkCommand::ModifiedEvent, this, &vtkVemoSceneReader::NoteChoice);
}

vtkVemoSceneReader::~vtkVemoSceneReader() {
  this->vtkVemoSceneReader::SetFileName(nullptr);
}

void vtkVemoSceneReader::PrintSelf(ostream& os, vtkIndent indent) {
  this->Superclass::PrintSelf(os, indent);
  os << indent << "FileName: " << (this->FileName != nullptr ? this->FileName : "(none)") << '\n';
  os << indent << "SceneColors: " << this->SceneColors << '\n';
  os << indent << "Blocks:\n";
  this->Blocks->PrintSelf(os, indent.GetNextIndent());
}

vtkDataArraySelection* vtkVemoSceneReader::GetBlocks() {
  return this->Blocks;
}

int vtkVemoSceneReader::CanReadFile(const char* path) {
  try {
    vemo::detectScene(vemo::toWidePath(path));
    return 1;
  } catch (...) {
    return 0;
  }
}

vtkMTimeType vtkVemoSceneReader::GetMTime() {
  // The next update is to read again. This must be later than the pipeline's note that the output was
  // made, which follows RequestData.
  if (this->WasCancelled) {
    this->WasCancelled = false;
    this->Modified();
  }
  return this->Superclass::GetMTime();
}

void vtkVemoSceneReader::NoteChoice() {
  // One process may find new blocks while the others do not: if it alone were modified, it would update
  // alone, and wait for the others.
  if (!this->IsReading) {
    this->Modified();
  }
}

bool vtkVemoSceneReader::ReportProgress(double fraction) {
  this->UpdateProgress(fraction);
  return this->GetAbortExecute() == 0;
}

int vtkVemoSceneReader::RequestInformation(vtkInformation*, vtkInformationVector**,
                                           vtkInformationVector* outputVector) {
  outputVector->GetInformationObject(0)->Set(vtkAlgorithm::CAN_HANDLE_PIECE_REQUEST(), 1);
  if (this->FileName == nullptr) {
    vtkErrorMacro("No file name");
    return 0;
  }
  // What failed may not fail again: permissions are not in the stamp.
  if (this->Known && this->Known->stamp == State::stampOf(this->FileName) && !this->Known->failure) {
    return 1;
  }
  this->MakeOutline();
  return 1;
}

void vtkVemoSceneReader::MakeOutline() {
  this->Known = std::make_unique<State>();
  this->Known->stamp = State::stampOf(this->FileName);
  try {
    this->Known->outline = vemo::outlineScene(this->FileName, {});
    this->Known->version = vemo::versionOf(this->FileName, this->Known->outline);
    updateChoices(this->Known->outline, *this->Blocks);
  } catch (...) {
    // RequestData reports it: other processes may have succeeded, and wait for this one.
    this->Known->failure = vemo::describeFailure();
  }
}

std::vector<vemo::Finding> vtkVemoSceneReader::ReadShare(int piece, int pieces,
                                                         vtkPartitionedDataSetCollection& output) {
  const vemo::SceneOutline& outline = this->Known->outline;
  const std::vector<std::size_t> chosen = chosenBlocks(outline, *this->Blocks);
  vemo::makeCollection(outline, chosen, output);

  std::vector<std::size_t> parts(chosen.size());
  std::ranges::transform(chosen, parts.begin(),
                         [&](std::size_t block) { return outline.blocks[block].part; });
  const std::vector<int> owners = vemo::shareParts(outline.parts, parts, pieces);
  // By their parts, where the blocks go that this process reads.
  std::map<std::size_t, unsigned> places;
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    if (owners[i] == piece) {
      places.emplace(parts[i], static_cast<unsigned>(i));
    }
  }
  const vemo::LoadedBlocks loaded = vemo::loadBlocks(
      this->FileName, [&places](std::size_t part) { return places.contains(part); },
      vemo::partOf([this](double fraction) { return this->ReportProgress(fraction); }, 0.0, READ));
  std::size_t done = 0;
  const auto colors = vemo::makeBlockColors();
  for (const vemo::SceneBlock& block : loaded.blocks) {
    const auto place = places.find(block.part);
    if (place == places.end()) {
      continue;
    }
    vemo::putBlock(block, *colors, this->SceneColors, place->second, output);
    if (!this->ReportProgress(READ + (1.0 - READ) * static_cast<double>(++done) /
                                         static_cast<double>(places.size()))) {
      throw vemo::Cancelled();
    }
  }
  return loaded.findings;
}

std::optional<std::string> vtkVemoSceneReader::ReadVersion(int piece, int pieces,
                                                           vtkPartitionedDataSetCollection& output,
                                                           std::vector<vemo::Finding>& findings) {
  for (int attempt = 0; attempt < MAX_ATTEMPTS; ++attempt) {
    // The pipeline asks for information only once, however often the file is replaced.
    if (this->Known->stamp != State::stampOf(this->FileName)) {
      this->MakeOutline();
    }
    std::optional<std::string> failure = this->Known->failure;
    if (!failure) {
      try {
        findings = this->ReadShare(piece, pieces, output);
      } catch (...) {
        failure = vemo::describeFailure();
      }
    }
    const bool wasCancelled = failure && failure->empty();
    if (wasCancelled || this->Known->stamp == State::stampOf(this->FileName)) {
      return failure;
    }
    output.Initialize();
  }
  return "The file changes while it is read";
}

std::optional<std::string> vtkVemoSceneReader::FindDifference(vemo::ProcessGroup& group) {
  if (!group.isSame(this->Known->version)) {
    return "The processes read different versions of the file";
  }
  std::string chosen;
  for (const std::size_t block : chosenBlocks(this->Known->outline, *this->Blocks)) {
    chosen += std::to_string(block) + ' ';
  }
  // After versions of the file that only some of them read.
  if (!group.isSame(std::hash<std::string>()(chosen))) {
    return "The processes have chosen different blocks. Choose again";
  }
  return std::nullopt;
}

int vtkVemoSceneReader::RequestData(vtkInformation*, vtkInformationVector**,
                                    vtkInformationVector* outputVector) {
  vtkInformation* const request = outputVector->GetInformationObject(0);
  const int piece = request->Get(vtkStreamingDemandDrivenPipeline::UPDATE_PIECE_NUMBER());
  const int pieces = request->Get(vtkStreamingDemandDrivenPipeline::UPDATE_NUMBER_OF_PIECES());
  vtkPartitionedDataSetCollection& output = *vtkPartitionedDataSetCollection::GetData(outputVector);

  std::vector<vemo::Finding> findings;
  this->IsReading = true;
  const std::optional<std::string> own = this->ReadVersion(piece, pieces, output, findings);
  this->IsReading = false;
  // A process that failed alone would leave the others waiting for it in the filters below.
  vemo::ProcessGroup group(pieces);
  std::optional<std::string> failure = group.findFailure(own);
  if (!failure) {
    failure = this->FindDifference(group);
  }
  if (!failure) {
    this->ReportFindings(findings, group, output);
    return 1;
  }
  output.Initialize();
  if (failure->empty()) {
    this->WasCancelled = true;
    return 1;
  }
  if (group.isFirst()) {
    vtkErrorMacro(<< this->FileName << ": " << *failure);
  }
  return 0;
}

void vtkVemoSceneReader::ReportFindings(const std::vector<vemo::Finding>& findings, vemo::ProcessGroup& group,
                                        vtkPartitionedDataSetCollection& output) {
  std::vector<std::string> own(findings.size());
  std::ranges::transform(findings, own.begin(),
                         [](const vemo::Finding& finding) { return vemo::describe(finding); });
  const std::vector<std::string> all = group.gather(own);
  if (all.empty()) {
    return;
  }
  vemo::FieldDataWriter(*output.GetFieldData()).add("Findings", all);
  if (!group.isFirst()) {
    return;
  }
  const std::string lost(vemo::severityName(vemo::Severity::LOST));
  std::string warning;
  std::size_t count = 0;
  for (const std::string& text : all) {
    if (text.starts_with(lost) && ++count <= MAX_WARNINGS) {
      warning += '\n' + text;
    }
  }
  if (count > 0 && warning != std::exchange(this->Known->warning, warning)) {
    vtkWarningMacro(<< this->FileName << ": " << count << (count == 1 ? " loss" : " losses")
                    << ", all in the field data \"Findings\":" << warning);
  }
}
