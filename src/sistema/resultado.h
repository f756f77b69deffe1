#pragma once

#include <optional>
#include <utility>

/// Why a call of the system failed, by its number (those of <cerrno>); true when it did fail.
class clsError {
public:
    constexpr clsError() = default;
    constexpr clsError(int intNumero) : m_intNumero(intNumero) {}

    [[nodiscard]] constexpr int fNumero() const { return m_intNumero; }
    [[nodiscard]] constexpr explicit operator bool() const { return m_intNumero != 0; }
    friend constexpr bool operator==(clsError, clsError) = default;

private:
    int m_intNumero = 0; ///< 0: none
};

/// What a call of the system gave, or why it gave nothing. Reads like std::optional.
template <typename Valor> class clsResultado : public std::optional<Valor> {
public:
    clsResultado(Valor valor) : std::optional<Valor>(std::move(valor)) {}
    clsResultado(int) = delete; ///< a number of an error has to say that it is one
    clsResultado(clsError error) : m_error(error) {}

    /// None when there is a value.
    [[nodiscard]] clsError fError() const { return m_error; }

private:
    clsError m_error;
};
