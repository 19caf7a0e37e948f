#pragma once
// Conversion between the data layer's code-page bytes and QString, in one place.

#include <QString>
#include <QStringList>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

QString fromBytes(std::string_view bytes);
std::string toBytes(const QString& text);
QStringList fromBytesList(const std::vector<std::string>& lines);
std::vector<std::string> toBytesList(const QStringList& texts);

} // namespace rd
