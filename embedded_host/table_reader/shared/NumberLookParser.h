#pragma once

#include "embedded_host/table_reader/shared/NumberLook.h"

namespace table_reader {

/// Splits a code into sections and each into tokens.
class NumberLook::Parser {
public:
    explicit Parser(const QString& code) : mCode(code) {}

    QVector<Section> parse();

private:
    void take(QChar c);
    void takeBracket();
    void takeCondition(const QString& bracket);
    void takeComma();
    void takeDigit(QChar c);
    void takeExponent();
    void takeWord();
    void add(Kind kind, const QString& text = QString()) { mSection.tokens.append({kind, text}); }
    void addLiteral(const QString& text) { add(Kind::Literal, text); }
    QString upTo(QChar end);
    bool nextIsDigit() const;

    const QString& mCode;
    int mAt = 0;
    bool mAfterPoint = false;
    bool mHasDigit = false;
    Section mSection;
};

} // namespace table_reader
