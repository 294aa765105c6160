#include "ImportReader.h"

#include "AddressList.h"
#include "RecordImport.h"
#include "TargetsImport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Whether @p text is meant to be JSON: an object, or an array of objects, empty or cut off.
/// "[::1]" isn't.
bool isJson(const QString &text)
{
    static const QRegularExpression beginning(u"\\A\\s*(\\{|\\[\\s*([\\]{]|\\z))"_s);
    return beginning.match(text).hasMatch();
}

ImportContent readDocument(const QJsonDocument &document, Timestamp now)
{
    if (document.isObject())
        return readRecords(document.object());
    const QJsonArray array = document.array();
    return areTargets(array) ? readTargets(array, now) : readRecords(array);
}

ImportContent readJson(const QByteArray &text, Timestamp now)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error == QJsonParseError::NoError)
        return readDocument(document, now);
    const auto line = text.first(std::min<qsizetype>(error.offset, text.size())).count('\n') + 1;
    return {
        .problems = {u"line %1: not JSON: %2"_s.arg(QString::number(line), error.errorString())}};
}

} // namespace

ImportContent readImport(const QByteArray &text, Timestamp now)
{
    QStringDecoder decoder(QStringDecoder::Utf8); // passes over a byte order mark
    const QString decoded = decoder(text);
    if (decoder.hasError())
        return {.problems = {u"the file isn't UTF-8"_s}};
    return isJson(decoded) ? readJson(decoded.toUtf8(), now) : readAddresses(decoded, now);
}

} // namespace ostrel
