#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>

class QProcess;

namespace controlcenter {

/**
 * One page of the window in all languages, one line each, and in every look. The pictures are taken
 * by further runs of this program, which nobody sees, on the same module and services: here the
 * language would stay what it is.
 */
class ContactSheet : public QObject
{
    Q_OBJECT

public:
    ~ContactSheet() override;

    /** Begins to draw @p places; those of an earlier call that are under way are given up. */
    void draw(const QStringList &places);

    /** How many languages are drawn, of how many. */
    int drawn() const;
    int all() const;

    /** The sheet of @p place, one of those that were drawn. */
    QImage sheet(const QString &place) const;

    /** What is marked on the sheet of @p place, and what could not be drawn; empty: nothing. */
    QStringList problems(const QString &place) const;

Q_SIGNALS:
    /** One more language is drawn. */
    void progressed();

private:
    void startNext();
    void giveUp();
    QImage picture(const QString &place, const QString &locale, int look) const;

    QTemporaryDir m_folder;
    QStringList m_places;
    QStringList m_waiting;  ///< locales
    QStringList m_failures; ///< runs of the program
    QList<QProcess *> m_running;
};

} // namespace controlcenter
