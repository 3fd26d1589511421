#pragma once

/// The table layer of the user-interface library: tables whose columns are addressed by an id, header items
/// that make the cells of their column, and cells that keep the number or the id itself.

#include <QLineEdit>
#include <QString>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "host/mrl_export.h"
#include "host/mrl_widgets.h"

class MRL_H_TableWidget;
class MRL_H_TwHeaderLineEditItem;
class MRL_H_TwHeaderComboBoxItem;
/// What the cells of a column share: id, description, list, state. Known to the table layer only.
struct MRL_H_TwColumn;
/// How the table layer reaches the private half of the cells.
struct MRL_H_TwCellAccess;

/// The description of a line edit, in a dialog or in a column.
struct StructLineEdit
{
    std::pair<int, int> kind{2, 0};
    int format = -15;   ///< 0 a whole number, -15 a text, -3 a plain factor
    int precision = -1; ///< the least number of decimals; -1: as many as the number needs
    double value = 0.0;
    double firstBound = 99999.0; ///< below the second bound: the lowest value; above it: no limit
    /// The highest value; of a text the greatest number of characters, when above 0.
    double secondBound = -99999.0;
    double thirdBound = -99998.0;
    int flags = 0; ///< callers pass 0x800, 0x80000 and their sum
    QString text;  ///< shown in place of the number when the value is `value` and this isn't null
    QString separator = QStringLiteral(",");
    QString furtherText;
    std::vector<QString> list;
};
using StrLineEdit = StructLineEdit;

/// An entry of a combo column.
struct ComboList
{
    QString text;
    int id = 0;
    int reserved = -99999;
};

/// The text of a number: 1.35, 0.70, 0.002. The undefined value -99999 gives an empty text.
///
/// @param format 0 for a whole number, -3 for a factor in single precision
/// @param precision the least number of decimals of a factor; it gets as many more as it needs, up to six
/// significant digits
MRL_HOST_API QString mrl_h_getDimStringFromVal(double value, int format, int precision);

/// A line edit with a description.
class MRL_HOST_API MRL_H_LineEdit : public QLineEdit
{
    Q_OBJECT
  public:
    MRL_H_LineEdit(QWidget* parent, const StructLineEdit& description, const char* name, const QString& unit,
                   const QString& toolTip, bool on);
    ~MRL_H_LineEdit() override;
    /// The description, for change.
    StrLineEdit& getStrLineEdit();
    /// Takes a new description and shows its value, or its text.
    void updateVal(const StrLineEdit& description);
    /// The number of the text; the last valid one when it is no number within the bounds.
    /// @param ok [out] may be null; false when the text is no number within the bounds
    double getVal(bool* ok = nullptr) const;
    void setVal(double value);

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

class MRL_HOST_API MRL_QT_TableWidgetItem : public QTableWidgetItem
{
  public:
    explicit MRL_QT_TableWidgetItem(int type = UserType);
    /// False: the cell is read-only and shown so: it loses `Qt::ItemIsEditable` and keeps `Qt::ItemIsEnabled`,
    /// so that it can still be clicked, selected and copied. Reports no change.
    virtual void setEnabled(bool enabled);
    virtual bool isEnabled() const;
};

/// The base of all cells of a MRL_H_TableWidget. A cell keeps its value itself and makes its text on demand.
/// Red and black text, the enabled state, and the bools of the first two user roles that cells of a column are
/// given share one byte of the cell; other colours and roles, and tool tips, cost memory of their own. Only a
/// change of the value is reported by `cellChanged`.
class MRL_HOST_API MRL_H_TwItem : public MRL_QT_TableWidgetItem
{
  public:
    /// The values of type() of the cells; what derives from a cell keeps its type.
    enum CellType : int {
        FirstCell = UserType + 100,
        LineEditCell = FirstCell,
        EditableComboBoxCell,
        ComboBoxCell,
        LastCell
    };
    /// Whether an entry is made, or only tried to see what it would change.
    enum class Entry { Try, Make };

    explicit MRL_H_TwItem(int type);
    ~MRL_H_TwItem() override;
    /// Cells come from blocks of their own; only in the thread of the user interface.
    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);
    MRL_H_TwItem(const MRL_H_TwItem&) = delete;
    MRL_H_TwItem& operator=(const MRL_H_TwItem&) = delete;

    /// The item as a cell of this layer, null when it is none. Cheaper than a dynamic_cast.
    static MRL_H_TwItem* fromItem(QTableWidgetItem* item);
    static const MRL_H_TwItem* fromItem(const QTableWidgetItem* item);

    /// A cell of a disabled column stays disabled.
    void setEnabled(bool enabled) override;
    bool isEnabled() const override;
    QVariant data(int role) const override;
    /// Qt::DisplayRole and Qt::EditRole set the value, unbounded; a whole number is kept exactly.
    void setData(int role, const QVariant& value) override;
    bool operator<(const QTableWidgetItem& other) const override;
    /// As QTableWidgetItem's, but cheap where nothing changes.
    void setForeground(const QBrush& brush);
    void setToolTip(const QString& toolTip);

  protected:
    MRL_H_TwItem(int type, MRL_H_TwColumn* column);
    MRL_H_TwColumn* column() const { return m_column; }
    /// What the cell shows.
    virtual QString shownText() const;
    /// The value as QTableWidgetItem::data gives it.
    virtual QVariant value() const;
    /// @return true when the value was another one
    virtual bool assign(const QVariant& value);
    /// Takes what a person typed or pasted; refuses what the column's description doesn't allow.
    /// @return true when the value is, or would be, another one
    virtual bool enterText(const QString& text, Entry entry);
    /// Tells the table that the value has changed.
    void valueChanged();
    /// Tells the table's journal that the cell is about to change.
    void willChange();

  private:
    friend struct MRL_H_TwCellAccess;
    struct Extra;
    void setRole(int role, const QVariant& value);
    bool setFlag(int role, const QVariant& value);
    bool isMarkedFinding() const;
    void dropEmptyExtra();

    MRL_H_TwColumn* m_column;       ///< counted; null for a cell that no header made
    std::unique_ptr<Extra> m_extra; ///< tool tip and rare roles, only for the cells that have some
    mutable int m_row = -1;         ///< where the cell was last seen; to be verified
    quint8 m_state = 0;
    quint16 m_noted = 0; ///< for the table's journal
};

/// A cell of a line-edit column: a text or a number, as the column's description says.
class MRL_HOST_API MRL_H_TwSimpleLineEditItem : public MRL_H_TwItem
{
  public:
    explicit MRL_H_TwSimpleLineEditItem(const MRL_H_TwHeaderLineEditItem& header);
    ~MRL_H_TwSimpleLineEditItem() override;

    static MRL_H_TwSimpleLineEditItem* fromItem(QTableWidgetItem* item);
    static const MRL_H_TwSimpleLineEditItem* fromItem(const QTableWidgetItem* item);

    /// Sets the text; of a number cell the number that the text names, the undefined value for an empty text.
    void setText(const QString& text);
    /// Sets the number, whatever the bounds of the column.
    void setVal(float value);
    /// @param ok [out] may be null; false for a text that is no number
    /// @return the number, -99999 for a number cell that shows nothing, 0 for a text that is none
    double getVal(bool* ok) const;

  protected:
    MRL_H_TwSimpleLineEditItem(int type, const MRL_H_TwHeaderLineEditItem& header);
    QString shownText() const override;
    QVariant value() const override;
    bool assign(const QVariant& value) override;
    bool enterText(const QString& text, Entry entry) override;
    /// @return true when the number was another one
    virtual bool assignNumber(double number);

  private:
    friend struct MRL_H_TwCellAccess;
    bool assignText(const QString& text);

    double m_number;
    QString m_text; ///< of a text cell
};

/// A number cell that can also stand for "no value of its own": its current id is -1 then.
class MRL_HOST_API MRL_H_TwEditableComboBoxItem : public MRL_H_TwSimpleLineEditItem
{
  public:
    explicit MRL_H_TwEditableComboBoxItem(const MRL_H_TwHeaderLineEditItem& header);

    static MRL_H_TwEditableComboBoxItem* fromItem(QTableWidgetItem* item);
    static const MRL_H_TwEditableComboBoxItem* fromItem(const QTableWidgetItem* item);

    /// -1: the cell has no value of its own; a setVal that follows at once sets what it shows instead. Any
    /// other number that it is given later is its own again.
    /// @return false for an id other than -1 and 0
    bool setCurrentId(int id);
    /// 0 with a value of its own, otherwise -1.
    int getCurrentId() const;

  protected:
    bool assign(const QVariant& value) override;
    bool enterText(const QString& text, Entry entry) override;
    bool assignNumber(double number) override;

  private:
    friend struct MRL_H_TwCellAccess;
    bool m_own = true;
    bool m_showNext = false; ///< the next number is for show
};

/// A cell of a combo column. It keeps the id, also one that the column's list doesn't have.
class MRL_HOST_API MRL_H_TwSimpleComboBoxItem : public MRL_H_TwItem
{
  public:
    explicit MRL_H_TwSimpleComboBoxItem(const MRL_H_TwHeaderComboBoxItem& header);

    static MRL_H_TwSimpleComboBoxItem* fromItem(QTableWidgetItem* item);
    static const MRL_H_TwSimpleComboBoxItem* fromItem(const QTableWidgetItem* item);

    /// @return false when the column's list has no such id; the cell still keeps it, and shows the number
    bool setCurrentId(int id);
    int getCurrentId() const { return m_id; }

  protected:
    QString shownText() const override;
    QVariant value() const override;
    bool assign(const QVariant& value) override;
    bool enterText(const QString& text, Entry entry) override;

  private:
    friend struct MRL_H_TwCellAccess;
    int m_id = -1;
};

/// The header of a column: its id, and the maker of its cells.
class MRL_HOST_API MRL_H_TwHeaderItem : public MRL_QT_TableWidgetItem
{
  public:
    MRL_H_TwHeaderItem(int type, int id, const QString& caption, const QString& toolTip,
                       Qt::Alignment alignment);
    ~MRL_H_TwHeaderItem() override;
    MRL_H_TwHeaderItem(const MRL_H_TwHeaderItem&) = delete;
    MRL_H_TwHeaderItem& operator=(const MRL_H_TwHeaderItem&) = delete;

    int id() const;
    /// False: the cells of the column can't be edited, even those that are enabled themselves.
    void setColumnEnabled(bool enabled);
    bool isColumnEnabled() const;
    /// A new cell of this column. The caller owns it until it is put into a table.
    virtual MRL_H_TwItem* createEmptyItem() = 0;
    MRL_H_TwColumn* column() const { return m_column; }

  private:
    MRL_H_TwColumn* m_column; ///< counted, shared with the cells
};

class MRL_HOST_API MRL_H_TwHeaderLineEditItem : public MRL_H_TwHeaderItem
{
  public:
    MRL_H_TwHeaderLineEditItem(int id, const StructLineEdit& description, const QString& caption,
                               const QString& toolTip, bool first, bool second, Qt::Alignment alignment);
    ~MRL_H_TwHeaderLineEditItem() override;
    /// The host's default description of a format.
    static StructLineEdit getDefaultStrcLe(int format);
    MRL_H_TwItem* createEmptyItem() override;
    const StructLineEdit& description() const;
};

class MRL_HOST_API MRL_H_TwHeaderComboBoxItem : public MRL_H_TwHeaderItem
{
  public:
    MRL_H_TwHeaderComboBoxItem(int id, const std::list<ComboList>& entries, const QString& caption,
                               const QString& toolTip, bool on, Qt::Alignment alignment);
    ~MRL_H_TwHeaderComboBoxItem() override;
    MRL_H_TwItem* createEmptyItem() override;
    /// The entries that the cells of the column offer, all rows the same. @param row any
    std::list<ComboList> getComboEntries(int row) const;
    /// Replaces what the cells offer, without changing their ids. A cell whose shown text changes reports
    /// `cellChanged`, unless the table's signals are blocked. The cost grows with the number of entries, and
    /// with the number of rows only where a text changes.
    void setComboEntries(const std::list<ComboList>& entries);
};

class MRL_HOST_API MRL_QT_TableWidget : public QTableWidget
{
    Q_OBJECT
  public:
    explicit MRL_QT_TableWidget(QWidget* parent = nullptr, const char* name = nullptr);
    MRL_QT_TableWidget(int rows, int columns, QWidget* parent = nullptr, const char* name = nullptr);
    ~MRL_QT_TableWidget() override;
    /// True: typing on a cell that can't be edited searches for a text that begins so.
    void activateSearchEnabled(bool on);
    bool isSearchEnabled() const { return m_search; }
    /// True: getContextMenu() builds a new menu on each call.
    void setResetContextMenuOnCreation(bool on);
    bool isResetContextMenuOnCreation() const { return m_resetMenu; }
    void keyboardSearch(const QString& search) override;

  private:
    bool m_search = true;
    bool m_resetMenu = false;
};

/// A table with column ids. It keeps itself sorted, but moves no row while a change is being reported or while
/// a signal block or a sorting block lasts. Sorting is stable: numbers by value, texts by their code units.
///
/// A walk that changes cells of many rows without a signal block should hold a sorting block: otherwise each
/// change of a cell in the sorted column moves its row when its report has returned.
class MRL_HOST_API MRL_H_TableWidget : public MRL_QT_TableWidget
{
    Q_OBJECT
    Q_PROPERTY(bool sortingEnabled READ isSortingEnabled WRITE setSortingEnabled)
  public:
    /// How new rows are made; the tables of the managers pass 1.
    enum CreateType : int { CreateNone = 0, CreateCells = 1 };
    enum class Search { Forward, Backward };

    explicit MRL_H_TableWidget(QWidget* parent = nullptr, const char* name = nullptr);
    MRL_H_TableWidget(int rows, int columns, QWidget* parent = nullptr, const char* name = nullptr);
    ~MRL_H_TableWidget() override;

    /// Installs a header item, which the table then owns; from then on its id finds the column.
    void setHorizontalHeaderItem(int column, QTableWidgetItem* item);
    /// The cell of a row in the column that has the id, or null. Constant time.
    QTableWidgetItem* itemOnColId(int row, int id) const;
    QTableWidgetItem* horizontalHeaderItemOnColId(int id) const;
    /// The position of the column with this id, -1 when there is none. Constant time.
    int getColumnNumber(int id) const;
    /// The id of the column at this position, -1 when there is none.
    int getColumnId(int column) const;
    /// Appends rows, filled with cells made by each header item's createEmptyItem. Reports no `cellChanged`.
    void appendNewRows(int count, CreateType type);
    /// Removes any number of rows in one pass. The other rows keep their order, the selection of their cells
    /// stays. Reports no `cellChanged`. Rows that the table doesn't have are ignored.
    void removeRows(const std::set<int>& rows);
    /// The row of a cell of this table, -1 for another one. Unlike QTableWidgetItem::row(), which searches
    /// all cells once rows have moved: constant time, or one pass over the column for all its cells together.
    int rowOf(const QTableWidgetItem* cell) const;
    /// True: a value entered in a selected cell goes to the same column of all selected rows. Each changed
    /// cell is reported once, with its row alone selected, the last one with the whole selection.
    void setMultiEditingEnabled(bool on);
    bool isMultiEditingEnabled() const;
    /// False: the context menu has no entries for new and delete.
    void setContextmenueEnabled_new_del(bool on);
    /// The menu with the standard entries of the table, owned by the table.
    virtual MRL_QT_Menu* getContextMenu();

    /// Shows a column. When it is shown for the first time it becomes as wide as its caption and cells need.
    void showColumnFitted(int column);

    /// Shows the rows that are accepted, and hides all others until the next call; null shows all. Rows that are
    /// filtered out are never selected, and so never copied, filled, pasted into or deleted by a person. Rows
    /// that are changed or added later stay in sight.
    void setRowFilter(const std::function<bool(int row)>& accepts);
    /// How many rows are hidden.
    int hiddenRowCount() const;
    /// The next cell in sight that has a text in its own, without regard to case, row by row; beyond the end of
    /// the table once more from its start. @param from where the search starts, looked at last; invalid: outside
    /// @return invalid when there is none, and for an empty text
    QModelIndex findText(const QString& text, const QModelIndex& from, Search search) const;

    /// Marks findings by more than their colour: red cells of a row without a valid verdict, and the number of
    /// that row. Red text is painted in a shade that can be read on its background, the tool tip of such a cell is
    /// its accessible description, and a typed value that isn't taken is told beside its cell. Off by default.
    /// @param id of the column whose cells hold the verdict of their row; -1: no marks
    /// @param role of the verdict, a bool, false for a row with a finding
    void setFindingMarks(int id, int role);
    /// True: copying puts an HTML table beside the text, for word processors. Off by default.
    void setHtmlCopyEnabled(bool on);

    /// These replace QTableView's sorting, which would move rows in the middle of a report and stays off.
    void setSortingEnabled(bool on);
    bool isSortingEnabled() const;
    void sortByColumn(int column, Qt::SortOrder order);
    void sortItems(int column, Qt::SortOrder order = Qt::AscendingOrder);

  public slots:
    /// The selected rectangle as tab-separated text; what isn't selected in it is empty.
    void copySelection();
    void copySelectionWithHeaders();
    /// Enters the clipboard's text from the first selected cell on, as if it were typed cell by cell; a
    /// single value, or a block that fits several times, fills the selection.
    void pasteClipboard();
    /// Enters the values of the first selected row in the other selected rows.
    void fillDown();
    void fitColumns();

  public:
    struct Private;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// The width of the widest text among as many cells as the header's resizeContentsPrecision tells, from
    /// the first row in sight on. The delegate isn't asked cell by cell.
    int sizeHintForColumn(int column) const override;

  private:
    std::unique_ptr<Private> d;
};

/// The frame that carries a table and the widgets beside it.
class MRL_HOST_API MRL_H_TableWidgetBox : public QFrame
{
    Q_OBJECT
  public:
    MRL_H_TableWidgetBox(MRL_H_TableWidget* table, QWidget* parent, const char* name);
};

/// The delegate of such tables, which makes the editors of the cells. A text or number is edited in a
/// MRL_H_LineEdit, a combo cell in a MRL_QT4_ComboBox, a MRL_H_TwEditableComboBoxItem in an editable
/// MRL_QT4_ComboBox with a MRL_H_LineEdit inside. Return commits and moves down, Tab commits and moves right,
/// Esc discards the edit.
class MRL_HOST_API MRL_H_DelegateItem : public QStyledItemDelegate
{
    Q_OBJECT
  public:
    explicit MRL_H_DelegateItem(QObject* parent = nullptr);
    ~MRL_H_DelegateItem() override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Shows tool tips as they stand, even where they look like markup.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    QWidget* openChoice(MRL_QT4_ComboBox& combo) const;
    bool leaveByKey(QWidget& editor, const QKeyEvent& event);
};
