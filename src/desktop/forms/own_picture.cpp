#include "desktop/forms/own_picture.h"

#include <QDir>

namespace orvel {

QIcon Own_Picture(const QString& name)
{
    QIcon icon;
    for (const auto& file : QDir(":/pictures").entryInfoList({name + ".*"}))
        icon.addFile(file.filePath());
    return icon;
}

} // namespace orvel
