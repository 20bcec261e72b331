#pragma once

class QString;

/**
 * The file with the module's texts for the locale named @p locale, such as "zh_CN"; empty where
 * there is none and the texts stay English. No file is looked at.
 */
QString catalogueFile(const QString &locale);
