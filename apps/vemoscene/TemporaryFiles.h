#pragma once

/// Gives the process a folder of its own for temporary files, in place of the
/// one in the environment. Folder and files are gone when the process ends: at
/// its exit, and when it is told to end by SIGINT, SIGTERM or SIGHUP. To be
/// called once, while there is one thread. Throws Failure with CANNOT_WRITE.
void useOwnTemporaryFolder();
