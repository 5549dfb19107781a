#ifndef vtkVemoSceneReader_h
#define vtkVemoSceneReader_h

#include "vemoReaderModule.h"  // for the export macro
#include "vtkNew.h"
#include "vtkPartitionedDataSetCollectionAlgorithm.h"

#include <memory>    // for std::unique_ptr
#include <optional>  // for std::optional
#include <string>    // for std::string
#include <vector>    // for std::vector

class vtkDataArraySelection;
class vtkPartitionedDataSetCollection;
namespace vemo {
class ProcessGroup;
struct Finding;
}  // namespace vemo

/// Reads a scene of either generation, each piece of geometry as a partitioned data set: its
/// instances are the partitions. Names are in the metadata and, with the assemblies, in the
/// collection's assembly. In parallel each process reads its share of the blocks.
class VEMOREADER_EXPORT vtkVemoSceneReader : public vtkPartitionedDataSetCollectionAlgorithm {
 public:
  static vtkVemoSceneReader* New();
  vtkTypeMacro(vtkVemoSceneReader, vtkPartitionedDataSetCollectionAlgorithm);
  void PrintSelf(ostream& os, vtkIndent indent) override;

  vtkSetFilePathMacro(FileName);
  vtkGetFilePathMacro(FileName);

  vtkMTimeType GetMTime() override;

  /// Whether the content of the file is a scene.
  static int CanReadFile(const char* path);

  /// The blocks to read, by name; those that the scene shows by default.
  vtkDataArraySelection* GetBlocks();

  /// Whether blocks get an array "Colors".
  vtkSetMacro(SceneColors, bool);
  vtkGetMacro(SceneColors, bool);
  vtkBooleanMacro(SceneColors, bool);

 protected:
  vtkVemoSceneReader();
  ~vtkVemoSceneReader() override;

  int RequestInformation(vtkInformation*, vtkInformationVector**, vtkInformationVector*) override;
  int RequestData(vtkInformation*, vtkInformationVector**, vtkInformationVector*) override;

 private:
  vtkVemoSceneReader(const vtkVemoSceneReader&) = delete;
  void operator=(const vtkVemoSceneReader&) = delete;

  struct State;

  void NoteChoice();
  bool ReportProgress(double fraction);
  /// Notes what the file holds now, or why that is not known.
  void MakeOutline();
  /// Adds what this process is to read to the output, and the empty rest.
  std::vector<vemo::Finding> ReadShare(int piece, int pieces, vtkPartitionedDataSetCollection& output);
  /// The same, all of one version of the file. Returns why it failed: an empty text if it was cancelled.
  std::optional<std::string> ReadVersion(int piece, int pieces, vtkPartitionedDataSetCollection& output,
                                         std::vector<vemo::Finding>& findings);
  /// Why what the processes read does not fit together.
  std::optional<std::string> FindDifference(vemo::ProcessGroup& group);
  void ReportFindings(const std::vector<vemo::Finding>& findings, vemo::ProcessGroup& group,
                      vtkPartitionedDataSetCollection& output);

  char* FileName = nullptr;
  bool SceneColors = true;
  bool WasCancelled = false;
  bool IsReading = false;
  vtkNew<vtkDataArraySelection> Blocks;
  std::unique_ptr<State> Known;
};

#endif
