// The help file compared with the program: links, formats, messages.
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/formats.h"
#include "support/print_qt.h"
#include "ui/source_literals.h"

namespace {

QString textOf(const QString& fileName) {
  QFile file(fileName);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString helpText() {
  return textOf(TOVAK_HELP_FILE);
}

/// As a page shows them: characters instead of entities, runs of blanks as one.
QString plain(QString html) {
  html.remove(QRegularExpression("<[^>]*>"));
  html.replace("&lt;", "<").replace("&gt;", ">").replace("&quot;", "\"").replace("&amp;", "&");
  return html.simplified();
}

QStringList allMatches(const QString& text, const QString& pattern) {
  QStringList found;
  const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
  for (auto match = expression.globalMatch(text); match.hasNext();) found += match.next().captured(1);
  return found;
}

/// The text inside one section of level 2.
QString sectionText(const QString& section) {
  return allMatches(helpText(), "<h2><a name=\"" + section + "\">(.*?)(?:<h2>|</body>)").join("");
}

QStringList titlesIn(const QString& section) {
  QStringList titles;
  for (const QString& title : allMatches(sectionText(section), "<h3>(.*?)</h3>")) titles += plain(title);
  return titles;
}

QString nameOf(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).simplified();
}

template <typename Formats>
QStringList namesOf(const Formats& formats) {
  QStringList names;
  for (const auto& format : formats) names += nameOf(format.name);
  return names;
}

}  // namespace

TEST(HelpFile, LinksLeadToAnchorsAndEveryAnchorIsThereOnce) {
  const QString text = helpText();
  const QStringList anchors = allMatches(text, "<a name=\"([^\"]*)\"");
  ASSERT_GT(anchors.size(), 40);
  const QSet<QString> known(anchors.begin(), anchors.end());
  EXPECT_EQ(known.size(), anchors.size());
  const QStringList links = allMatches(text, "href=\"([^\"]*)\"");
  ASSERT_GT(links.size(), 40);
  for (const QString& link : links) {
    EXPECT_TRUE(link.startsWith('#') && known.contains(link.mid(1))) << link.toStdString();
  }
}

TEST(HelpFile, EveryFormatHasItsSectionInTheOrderOfItsList) {
  const tovak::run::FormatTables formats = tovak::formats::formatTables();
  EXPECT_EQ(titlesIn("source-formats"), namesOf(formats.sources));
  EXPECT_EQ(titlesIn("target-formats"), namesOf(formats.targets));
  const QString contents = helpText().section("<h2>", 0, 0);
  for (const QString& anchor :
       allMatches(sectionText("source-formats") + sectionText("target-formats"), "<h3><a name=\"([^\"]*)"))
    EXPECT_TRUE(contents.contains("href=\"#" + anchor + '"')) << anchor.toStdString();
}

TEST(HelpFile, EverySourceFormatShowsLinesOfItsSample) {
  for (const QString& section : sectionText("source-formats").split("<h3>").mid(1)) {
    // Neither is read from a file.
    if (section.contains("name=\"s-keyboard\"") || section.contains("nothing in this version")) continue;
    QString samples;
    for (const QString& name : allMatches(section, "<code>samples/([^<]*)</code>"))
      samples += textOf(QString(TOVAK_SAMPLES_FOLDER "/") + name).simplified();
    const QStringList examples = allMatches(section, "<pre>(.*?)</pre>");
    EXPECT_TRUE(std::any_of(examples.begin(), examples.end(), [&](const QString& example) {
      const QStringList lines = example.split('\n');
      return std::all_of(lines.begin(), lines.end(),
                         [&](const QString& line) { return samples.contains(line.simplified()); });
    })) << section.left(60).toStdString();
  }
}

TEST(HelpFile, QuotesMessagesAsTheProgramWordsThem) {
  const QString literals = tovak::tests::sourceLiterals(TOVAK_SOURCE_FOLDER);
  const QStringList messages = allMatches(helpText(), "<b class=\"message\">(.*?)</b>");
  ASSERT_GT(messages.size(), 50);
  for (const QString& message : messages) EXPECT_TRUE(literals.contains(plain(message))) << message.toStdString();
}
