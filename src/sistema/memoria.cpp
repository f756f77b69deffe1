#include "sistema/memoria.h"

#include <algorithm>
#include <memory>

#include <sys/mman.h>
#include <unistd.h>

void fDesocupar(std::span<std::byte> bloque)
{
    constexpr std::size_t lngPieza = std::size_t{4} << 20;
    const auto lngPagina = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void *inicio = bloque.data();
    std::size_t lngQueda = bloque.size();
    // Only pages that lie within: others may hold something else, too.
    if (std::align(lngPagina, lngPagina, inicio, lngQueda) == nullptr) {
        return;
    }
    for (auto *bytLugar = static_cast<std::byte *>(inicio); lngQueda >= lngPagina;) {
        const std::size_t lngEsta = std::min(lngPieza, lngQueda / lngPagina * lngPagina);
        madvise(bytLugar, lngEsta, MADV_DONTNEED); // else they are freed with the block
        bytLugar += lngEsta;
        lngQueda -= lngEsta;
    }
}
