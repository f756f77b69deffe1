#pragma once

#include "sistema/llamadas.h"

#include <cerrno>

/// Has the calls of another table made while it lives. The table has to outlive every
/// thread that makes calls.
class clsOtrasLlamadas {
public:
    explicit clsOtrasLlamadas(const clsLlamadas &otras) : m_antes(llamadasEnUso.exchange(&otras)) {}
    ~clsOtrasLlamadas() { llamadasEnUso = m_antes; }
    clsOtrasLlamadas(const clsOtrasLlamadas &) = delete;
    clsOtrasLlamadas &operator=(const clsOtrasLlamadas &) = delete;

private:
    const clsLlamadas *m_antes;
};

/// A call that does nothing and fails, for any place of the table.
template <int intError, class Fin, class... Argumentos> Fin fFalla(Argumentos...)
{
    errno = intError;
    return Fin{-1};
}

/// Calls of the system that fail while it lives, counted from 1 over all of them in the order they
/// are made. One at a time.
class clsFallos {
public:
    struct clsPlan {
        int intPrimera = 0;                       ///< the first one that fails; 0: none
        bool bolSiguen = false;                   ///< whether all behind it fail, too
        int intError = 0;                         ///< why
        const clsLlamadas &base = llamadasReales; ///< makes those that do not fail
    };
    explicit clsFallos(const clsPlan &plan);
    ~clsFallos() = default;
    clsFallos(const clsFallos &) = delete;
    clsFallos &operator=(const clsFallos &) = delete;

    /// Calls that were made so far.
    [[nodiscard]] static int fHechas();

private:
    const clsPlan m_plan;
    const clsOtrasLlamadas m_otras;
};

/// A disk that does not answer while it lives: whoever asks it by a name, writes to it or flushes
/// it waits until it goes. One at a time.
class clsDiscoParado {
public:
    clsDiscoParado();
    ~clsDiscoParado();
    clsDiscoParado(const clsDiscoParado &) = delete;
    clsDiscoParado &operator=(const clsDiscoParado &) = delete;

private:
    const clsOtrasLlamadas m_otras;
};

/// A disk as FAT keeps one: times of two seconds, years 1980 to 2107, no links, no changes of
/// permissions, and no renaming that refuses a taken name.
[[nodiscard]] const clsLlamadas &fDiscoFat();
