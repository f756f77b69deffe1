#pragma once

#include "sistema/resultado.h"

#include <string>

/// Finishes the catalogue of a correction that was killed, or of one that was being taken back,
/// while the root's lock is held; fTerminarCorreccion says how.
[[nodiscard]] clsError fReanudar(const std::string &strRaiz);
