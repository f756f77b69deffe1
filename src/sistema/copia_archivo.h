#pragma once

#include "sistema/resultado.h"

#include <atomic>
#include <string>

/// Copies one file with its permission bits and modification time. What has the target's name is
/// replaced silently, but only by a whole copy; a link of that name is replaced itself. Holes stay
/// holes. The source's bytes are never touched.
/// @param strDestino full path of the copy; its folder must exist.
/// @param fin        once true, the copy is given up (ECANCELED); may be null.
/// @return on an error the target is as it was, and nothing temporary is left. EEXIST when source
///         and target are the same file, EISDIR when one of them is a folder, EINVAL when the
///         source is neither a file nor a link to one, EBUSY when it was written to meanwhile.
[[nodiscard]] clsError fCopiar(const std::string &strOrigen, const std::string &strDestino,
                               const std::atomic<bool> *fin = nullptr);

/// Waits until all that was written to the file system of a folder is on its disk: for the end of
/// many copies, which are not flushed one by one.
[[nodiscard]] clsError fVolcarDisco(const std::string &strCarpeta);
