#pragma once

#include <filesystem>
#include <system_error>

namespace vemo {

/// Makes a folder for this process's temporary files, puts it in place of TMPDIR,
/// and returns its path. Folder and files are removed at exit, and when SIGINT,
/// SIGTERM, SIGHUP, SIGQUIT or SIGXCPU ends the process; if it ends otherwise, or the system
/// lets it start no thread, by the next process that makes such a folder. Later calls only return the path.
/// Throws Failure with CANNOT_WRITE.
///
/// Like the next function, it blocks these signals in the calling thread: the
/// first call must come before other threads start.
std::filesystem::path useOwnTemporaryFolder();

/// Removes temporary files beside the output when one of these signals ends the
/// process.
void removePartialOutputWhenEnded();

/// Makes a folder for outputs, which is removed if one of these signals ends the process
/// while nothing is in it. Returns false if there is one already, or, with the error, if it cannot
/// be made.
bool makeOutputFolder(const std::filesystem::path& folder, std::error_code& error);

/// Does not return while a signal is ending the process: its temporary files are
/// being removed, and failures that this causes are not worth a message.
void waitWhenEnding();

}  // namespace vemo
