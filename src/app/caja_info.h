#pragma once

#include <QLineEdit>

/// An information box: text to read. Where it is wider than its place it shows the end, which
/// tells name, date and size, and the whole as a tooltip.
class clsCajaInfo : public QLineEdit {
public:
    /// @param strAccesible what screen readers call it.
    clsCajaInfo(const char *strNombre, const QString &strAccesible, QWidget *padre);

    /// Limits the text to the part of the box that can be seen.
    /// @param intX where something else begins, in coordinates of the parent.
    void fHasta(int intX);

protected:
    bool event(QEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;

private:
    [[nodiscard]] QRect fSitio() const;
    [[nodiscard]] bool fCabe() const;
};
