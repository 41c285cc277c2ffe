// Extracts the translatable texts of a source tree with lupdate and checks
// that each catalog translates every one of them, keeping the "%1" markers,
// the HTML tags and the accelerator of the source text.
//
//   catalogcheck --lupdate PATH --work DIR --sources DIR... --catalog TS... [--empty TS]
//
// Prints one line per fault and exits with 1 when there is any.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTextStream>
#include <QXmlStreamReader>

#include <optional>

namespace {

struct SMessage
{
    QString context;
    QString source;
    QString comment;
    QString type; // "", "unfinished", "vanished", "obsolete"
    QStringList translations;
};

QString keyOf(const SMessage& m)
{
    return m.context + QChar(0) + m.source + QChar(0) + m.comment;
}

std::optional<QList<SMessage>> readCatalog(const QString& path, QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: cannot be read").arg(path);
        return std::nullopt;
    }
    QList<SMessage> messages;
    QXmlStreamReader xml(&file);
    QString context;
    SMessage message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (name == QLatin1String("message")) {
            message = SMessage{context, {}, {}, {}, {}};
        } else if (name == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (name == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (name == QLatin1String("translation")) {
            message.type = xml.attributes().value(QLatin1String("type")).toString();
            // A numerus message keeps its forms in children; a plain one its text.
            QString text;
            while (!xml.atEnd()) {
                xml.readNext();
                if (xml.isCharacters())
                    text += xml.text();
                else if (xml.isStartElement() && xml.name() == QLatin1String("numerusform"))
                    message.translations.append(xml.readElementText());
                else if (xml.isEndElement() && xml.name() == QLatin1String("translation"))
                    break;
            }
            if (message.translations.isEmpty())
                message.translations.append(text);
            messages.append(message);
        }
    }
    if (xml.hasError()) {
        error = QStringLiteral("%1:%2: %3").arg(path).arg(xml.lineNumber()).arg(xml.errorString());
        return std::nullopt;
    }
    return messages;
}

QStringList matches(const QRegularExpression& re, const QString& text, int group = 0)
{
    QStringList found;
    for (auto it = re.globalMatch(text); it.hasNext();)
        found.append(it.next().captured(group));
    return found;
}

QSet<QString> markers(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("%L?\\d+"));
    QSet<QString> found;
    for (const QString& marker : matches(re, text))
        found.insert(QString(marker).remove(QLatin1Char('L')));
    return found;
}

// Tags compare by name and attributes, whatever the case and spacing.
QMap<QString, int> tags(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("<\\s*(/?)\\s*([A-Za-z][A-Za-z0-9]*)([^<>]*)>"));
    QMap<QString, int> found;
    for (auto it = re.globalMatch(text); it.hasNext();) {
        const auto match = it.next();
        const QString attributes = match.captured(3).simplified().remove(QLatin1Char(' '));
        ++found[QLatin1Char('<') + match.captured(1) + match.captured(2).toLower() + attributes + QLatin1Char('>')];
    }
    return found;
}

// "&&" is a literal ampersand and "&nbsp;" an entity; neither is an accelerator.
QChar accelerator(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("&(?!&)(?![A-Za-z]+;|#\\d+;)(\\w)"));
    QString rest = text;
    rest.replace(QLatin1String("&&"), QLatin1String("  "));
    const auto match = re.match(rest);
    return match.hasMatch() ? match.captured(1).at(0).toUpper() : QChar();
}

QStringList faultsOf(const SMessage& wanted, const SMessage* have)
{
    if (!have)
        return {QStringLiteral("missing")};
    if (have->type == QLatin1String("vanished") || have->type == QLatin1String("obsolete"))
        return {QStringLiteral("marked %1").arg(have->type)};
    if (have->type == QLatin1String("unfinished"))
        return {QStringLiteral("unfinished")};
    QStringList faults;
    const QSet<QString> wantedMarkers = markers(wanted.source);
    const QMap<QString, int> wantedTags = tags(wanted.source);
    const QChar wantedAccelerator = accelerator(wanted.source);
    for (const QString& translation : have->translations) {
        if (translation.trimmed().isEmpty()) {
            faults.append(QStringLiteral("empty translation"));
            continue;
        }
        for (const QString& marker : wantedMarkers - markers(translation))
            faults.append(QStringLiteral("drops %1").arg(marker));
        const QMap<QString, int> haveTags = tags(translation);
        for (auto it = wantedTags.cbegin(); it != wantedTags.cend(); ++it) {
            if (haveTags.value(it.key()) < it.value())
                faults.append(QStringLiteral("drops the tag %1").arg(it.key()));
        }
        if (!wantedAccelerator.isNull() && accelerator(translation) != wantedAccelerator)
            faults.append(QStringLiteral("drops the accelerator &%1").arg(wantedAccelerator));
    }
    return faults;
}

QString shortened(const QString& text)
{
    QString one = text.simplified();
    return one.size() > 90 ? one.left(87) + QStringLiteral("...") : one;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption lupdateOption("lupdate", "The lupdate program.", "PATH");
    const QCommandLineOption workOption("work", "Folder for the extracted texts.", "DIR");
    const QCommandLineOption sourcesOption("sources", "Source folder or file to extract from.", "PATH");
    const QCommandLineOption catalogOption("catalog", "Catalog that must translate every text.", "TS");
    const QCommandLineOption emptyOption("empty", "Catalog that must translate nothing.", "TS");
    parser.addOptions({lupdateOption, workOption, sourcesOption, catalogOption, emptyOption});
    parser.process(app);
    QTextStream out(stdout);
    if (!parser.isSet(lupdateOption) || !parser.isSet(workOption) || !parser.isSet(sourcesOption)
        || !parser.isSet(catalogOption)) {
        out << parser.helpText();
        return 2;
    }

    QDir().mkpath(parser.value(workOption));
    const QString extracted = QDir(parser.value(workOption)).filePath(QStringLiteral("extracted.ts"));
    QFile::remove(extracted);
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(parser.value(lupdateOption), QStringList{QStringLiteral("-no-obsolete"), QStringLiteral("-locations"),
                                                          QStringLiteral("none"), QStringLiteral("-extensions"),
                                                          QStringLiteral("cpp,h,ui")}
                                                   + parser.values(sourcesOption)
                                                   + QStringList{QStringLiteral("-ts"), extracted});
    if (!lupdate.waitForFinished(120000) || lupdate.exitStatus() != QProcess::NormalExit || lupdate.exitCode() != 0) {
        out << "lupdate failed:\n" << lupdate.readAll() << '\n';
        return 2;
    }

    QString error;
    const auto texts = readCatalog(extracted, error);
    if (!texts || texts->isEmpty()) {
        out << (texts ? QStringLiteral("lupdate found no texts in %1").arg(parser.values(sourcesOption).join(' '))
                      : error)
            << '\n';
        return 2;
    }

    int faults = 0;
    for (const QString& path : parser.values(catalogOption)) {
        const auto catalog = readCatalog(path, error);
        if (!catalog) {
            out << error << '\n';
            return 2;
        }
        QHash<QString, const SMessage*> byKey;
        for (const SMessage& message : *catalog)
            byKey.insert(keyOf(message), &message);
        const QString name = QFileInfo(path).fileName();
        for (const SMessage& wanted : *texts) {
            for (const QString& fault : faultsOf(wanted, byKey.value(keyOf(wanted)))) {
                out << name << ": [" << wanted.context << "] \"" << shortened(wanted.source) << "\": " << fault << '\n';
                ++faults;
            }
        }
    }
    // The source language needs no translations; any there would override the sources.
    for (const QString& path : parser.values(emptyOption)) {
        const auto catalog = readCatalog(path, error);
        if (!catalog) {
            out << error << '\n';
            return 2;
        }
        for (const SMessage& message : *catalog) {
            if (!message.translations.join(QString()).isEmpty()) {
                out << QFileInfo(path).fileName() << ": [" << message.context << "] \"" << shortened(message.source)
                    << "\": translated in the source language's catalog\n";
                ++faults;
            }
        }
    }
    out << texts->size() << " texts, " << parser.values(catalogOption).size() << " catalogs, " << faults
        << " faults\n";
    return faults == 0 ? 0 : 1;
}
