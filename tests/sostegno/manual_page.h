#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <span>

/// A page of the users' manual, held against the texts that the screens show and against their sources.
class ManualPage {
 public:
  /// `name` as it lies in docs/manuale.
  explicit ManualPage(const QString& name);
  const QString& text() const { return text_; }
  /// What the first cells of the page's rows quote, whole.
  QStringList quoted() const;
  /// Of what the rows quote, the parts that no text has; "..." stands for what changes.
  QStringList quotedBeside(std::span<const char16_t* const> texts) const;

 private:
  QString text_;
};

/// Of the literals with a blank in them that stand in the sources of a folder of src.
struct SourceTexts {
  int seen = 0;
  /// File and text of those with a part that `page` lacks.
  QStringList missing{};
};

/// `opening` is the expression of what stands before a literal; `noMessages` are left out. "%1" and line ends
/// part a text.
SourceTexts sourceTexts(const QString& folder, const QString& page,
                        std::span<const char16_t* const> noMessages,
                        const QString& opening = QStringLiteral("QStringLiteral\\("));
