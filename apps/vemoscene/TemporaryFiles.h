#pragma once

#include <string>

namespace vemo {

/// Gives the process a folder of its own for temporary files, in place of the
/// one in the environment. Folder and files are gone when the process ends: at
/// its exit, and when it is told to end by SIGINT, SIGTERM or SIGHUP. To be
/// called once, while there is one thread. Throws Failure with CANNOT_WRITE.
void useOwnTemporaryFolder();

/// Has the file that is being written to become `output`, and has a name of its
/// own beside it until then, removed when the process is told to end by these
/// signals. To be called once, while there is one thread.
void removePartialOutputWhenEnded(const std::string& output);

/// Does not return while a signal is ending the process: its temporary files are
/// being removed, and what fails for that is not worth a message.
void waitWhenEnding();

}  // namespace vemo
