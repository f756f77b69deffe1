#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Shows the EXIF data of a file as text, one tag a line. Esc closes it.
class frmExif : public QDialog {
    Q_OBJECT
public:
    explicit frmExif(QWidget *padre);
    /// Shows a text and waits until the window is closed.
    bool fbolShow(const QString &strTexto);

private:
    QPlainTextEdit *m_txtExif;
};
