#pragma once

#include <string>

namespace vemo {

/// Makes a folder for this process's temporary files and puts it in place of
/// TMPDIR. Folder and files are removed at exit, and when SIGINT, SIGTERM or
/// SIGHUP ends the process. Later calls do nothing. Throws Failure with
/// CANNOT_WRITE.
///
/// Like the next function, it blocks these signals in the calling thread: the
/// first call must come before other threads start.
void useOwnTemporaryFolder();

/// Removes the temporary file beside `output` that is being written, when one of
/// these signals ends the process.
void removePartialOutputWhenEnded(const std::string& output);

/// Does not return while a signal is ending the process: its temporary files are
/// being removed, and failures that this causes are not worth a message.
void waitWhenEnding();

}  // namespace vemo
