#pragma once

#include <QWidget>

namespace controlcenter {

/** The page of an entry that belongs to the desktop: it says that this window does not bring it. */
class HostPage : public QWidget
{
    Q_OBJECT

public:
    explicit HostPage(QWidget *parent = nullptr);
};

} // namespace controlcenter
