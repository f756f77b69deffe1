#pragma once

#include <QLabel>
#include <QProgressBar>

#include <chrono>
#include <string>
#include <string_view>

/// How far long work has come: a text with the time that is left, and a bar.
class clsProgreso {
public:
    explicit clsProgreso(QWidget *padre);
    void fMostrar(std::string_view strObra, int lngHechos, int lngTodos);
    /// Nothing is being done.
    void fQuitar();

    QLabel *const lblProgreso;
    QProgressBar *const barProgreso;

private:
    using Reloj = std::chrono::steady_clock;
    std::string m_strObra;
    Reloj::time_point m_desde; ///< when this work was shown first
};
