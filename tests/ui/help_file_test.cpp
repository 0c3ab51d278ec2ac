// The help file against the program: links, formats, messages.
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/formats.h"
#include "ui/source_literals.h"

namespace {

QString helpText() {
  QFile file(TOVAK_HELP_FILE);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
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

/// The titles of the sections inside one section of level 2.
QStringList titlesIn(const QString& section) {
  const QString text = allMatches(helpText(), "<h2><a name=\"" + section + "\">(.*?)(?:<h2>|</body>)").join("");
  QStringList titles;
  for (const QString& title : allMatches(text, "<h3>(.*?)</h3>")) titles += plain(title);
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
}

TEST(HelpFile, QuotesMessagesAsTheProgramWordsThem) {
  const QString literals = tovak::tests::sourceLiterals(TOVAK_SOURCE_FOLDER);
  const QStringList messages = allMatches(helpText(), "<b class=\"message\">(.*?)</b>");
  ASSERT_GT(messages.size(), 50);
  for (const QString& message : messages) EXPECT_TRUE(literals.contains(plain(message))) << message.toStdString();
}

TEST(HelpFile, LeavesColoursAndSizesToThePalette) {
  EXPECT_EQ(allMatches(helpText(), "(color|background|font-size|<font)"), QStringList());
}

/// What does not fit 80 columns is broken or pushed out of sight beside the contents pane.
TEST(HelpFile, ExamplesFitTheWindow) {
  for (const QString& example : allMatches(helpText(), "<pre>(.*?)</pre>")) {
    for (QString line : example.split('\n')) {
      line.replace("&amp;", "&").replace("&lt;", "<").replace("&gt;", ">");
      EXPECT_LE(line.size(), 85) << line.toStdString();
    }
  }
}
