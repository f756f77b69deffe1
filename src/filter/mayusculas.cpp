#include "filter/mayusculas.h"

#include "shared/qtexto.h"

std::string fMayusculasCompuestas(std::string_view strUtf8)
{
    return fUtf8(fQ(strUtf8).toUpper().normalized(QString::NormalizationForm_C));
}
