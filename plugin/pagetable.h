#pragma once

#include <QVector>

class QWidget;
class ThirdListWidget;

/** One page of the module: what navigation list, breadcrumb, search and links know of it. */
struct PageEntry
{
    const char *name;                     ///< Untranslated: breadcrumb, search and links go by it.
    const char *rowText;                  ///< The name once more, as the list translates it.
    const char *iconName;                 ///< Of the row, in the icon theme.
    const char *shortName;                ///< For links from outside.
    void (ThirdListWidget::*requested)(); ///< The list's signal for it.
    QWidget *(*newPage)();                ///< Builds it, while events are processed; no parent.
    QVector<const char *> settings;       ///< Untranslated: what the search finds on it, in order.
};

/** Rows of the table and of the navigation list. */
enum PageRow { AssistantRow, SpeechToTextRow, TextToSpeechRow, TranslationRow };

/** The pages in the order of PageRow. */
const QVector<PageEntry> &pageTable();

/** The order in which the breadcrumb's names are registered. */
constexpr PageRow breadcrumbOrder[] = {AssistantRow, TextToSpeechRow, SpeechToTextRow,
                                       TranslationRow};

/** The order of the short names. */
constexpr PageRow shortNameOrder[] = {AssistantRow, TranslationRow, SpeechToTextRow,
                                      TextToSpeechRow};
