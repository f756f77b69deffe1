#pragma once

#include <QDialog>

/// The About box: name, version, logo, licence, a way to the help. Enter and Esc close it.
class frmAcerca : public QDialog {
    Q_OBJECT
public:
    explicit frmAcerca(QWidget *padre);

signals:
    /// The help was asked for; the box stays open.
    void fAyudaPedida();
};
