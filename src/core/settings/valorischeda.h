// What a page of the settings hands to the save.
#pragma once

#include <QList>
#include <QString>

#include <utility>

/// Keys and the texts to be stored under them.
using ValoriScheda = QList<std::pair<QString, QString>>;
