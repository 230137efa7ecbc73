#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace crownlab {

/// Records hold bytes, taken as UTF-8; widgets hold UTF-16.
inline QString ShownText(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

inline std::string RecordText(const QString& text) { return text.toStdString(); }

}  // namespace crownlab
