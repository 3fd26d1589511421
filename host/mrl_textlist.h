#pragma once

/// The text-list library: named lists of lines, and the help viewer.

#include <QString>

#include <memory>

#include "host/mrl_export.h"

class QWidget;

/// A text of the text-list library.
class MRL_HOST_API MRL_T_String
{
  public:
    MRL_T_String(const QString& text = QString());
    const QString& text() const;

  private:
    QString m_text;
};

/// A named list of text lines. A text of several lines that is appended at once becomes its lines.
class MRL_HOST_API MRL_T_Liste
{
  public:
    /// A line of the list, numbered from 0; -1 says that there is none.
    using Line = int;

    explicit MRL_T_Liste(const MRL_T_String& name);
    ~MRL_T_Liste();
    MRL_T_Liste(const MRL_T_Liste&) = delete;
    MRL_T_Liste& operator=(const MRL_T_Liste&) = delete;

    void Append(const QString& text);
    /// @param text UTF-8
    void Append(const char* text);
    /// @return the last line, -1 for an empty list
    Line GetLast() const;
    /// Deletes a line; a line that isn't there is passed over.
    void Delete(Line line);

    const MRL_T_String& name() const;
    int count() const;
    /// @return the line without its line feed, an empty text for a line that isn't there
    QString at(Line line) const;

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// The help viewer.
class MRL_HOST_API MRL_T_Help
{
  public:
    /// Opens a help page. @param parent the window that the viewer belongs to, may be null.
    /// @param viewer the key of the help book, for example "marlload". @param topic for example "ACT"
    static void show(QWidget* parent, const char* viewer, const char* topic);
};
