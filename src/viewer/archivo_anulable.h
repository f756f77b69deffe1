#pragma once

#include <QFile>

#include <atomic>

/// An open file that stops giving bytes when its picture is no longer wanted.
class clsArchivoAnulable : public QFile {
public:
    explicit clsArchivoAnulable(const std::atomic<bool> &bolAnulado) : m_bolAnulado(bolAnulado) {}

protected:
    qint64 readData(char *chrDatos, qint64 lngMaximo) override
    {
        return m_bolAnulado ? -1 : QFile::readData(chrDatos, lngMaximo);
    }

private:
    const std::atomic<bool> &m_bolAnulado;
};
