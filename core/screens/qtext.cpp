#include "core/screens/qtext.h"

#include "core/text.h"

namespace rd {

QString fromBytes(std::string_view bytes) {
    const std::string utf8 = cp1252ToUtf8(bytes);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string toBytes(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return utf8ToCp1252(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

QStringList fromBytesList(const std::vector<std::string>& lines) {
    QStringList out;
    out.reserve(static_cast<qsizetype>(lines.size()));
    for (const auto& line : lines)
        out << fromBytes(line);
    return out;
}

std::vector<std::string> toBytesList(const QStringList& texts) {
    std::vector<std::string> out;
    out.reserve(static_cast<std::size_t>(texts.size()));
    for (const auto& text : texts)
        out.push_back(toBytes(text));
    return out;
}

} // namespace rd
