#pragma once

#include "sistema/resultado.h"

#include <functional>
#include <string>
#include <string_view>

/// What a walk tells and asks its surroundings, from the thread that called fRecorrer.
class clsObservador {
public:
    virtual ~clsObservador() = default;
    /// A folder's records are next (full path with a trailing "/").
    virtual void fCarpeta(const std::string &strCarpeta) = 0;
    /// Reading the folder failed; its remaining files and all its subfolders are left out.
    virtual void fError(clsError error) = 0;
    /// Go on? Asked every 50 ms, however long a folder takes; false ends the walk.
    [[nodiscard]] virtual bool fSeguir() = 0;
};

/// Takes catalogue lines of some files of the folder that was told last; false ends the walk.
using clsReceptor = std::function<bool(std::string_view strLineas)>;

/// How a walk ended.
struct clsRecorrido {
    bool bolInterrumpido = false; ///< the observer or the receiver ended it
    clsError errorRaiz;           ///< when the root folder could not be read whole
};

struct clsOpcionesRecorrido {
    int intHilos = 0; ///< threads that read ahead; 0: as many as suit slow disks
    /// Names in the root folder that are not recorded. Called on threads, and perhaps still when
    /// the walk was ended: it must not refer to anything that ends with it.
    std::function<bool(std::string_view)> fOmitirEnRaiz;
};

/// Walks the tree below strRaiz (with a trailing "/") and hands over a catalogue record of every
/// file, depth first: a folder's files in the order of the file system, then its subfolders one
/// after the other.
///
/// Folder links are not entered; links to regular files count as files, with their target's date
/// and size. Links that cannot be followed, pipes, sockets and devices are left out, and so is an
/// entry that vanished since its folder was listed or cannot be looked up, as long as the folder
/// itself can. Depth of the tree and length of paths have no limit, and only a few folders are open
/// at a time.
[[nodiscard]] clsRecorrido fRecorrer(const std::string &strRaiz,
                                     const clsOpcionesRecorrido &opciones,
                                     clsObservador &observador, const clsReceptor &fRegistros);
