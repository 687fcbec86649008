#pragma once

#include <functional>
#include <memory>
#include <QDialog>
#include <QScopedValueRollback>
#include <QUndoStack>
#include <utility>

class QLineEdit;
class QToolButton;

namespace orvel {

constexpr int Most_Changes_Kept = 50;

// Undo and redo of an editor by Ctrl+Z and Ctrl+Y or Ctrl+Shift+Z, and by two small buttons that tell which change they
// are about. A text box undoes what was typed since it was entered, a grid its own cells, before the editor has its
// turn. A change counts when its control is left or was used.
class Undo_Keys : public QObject {
    Q_OBJECT

public:
    explicit Undo_Keys(QDialog& form);
    ~Undo_Keys() override { Changes.disconnect(this); } // an emptied stack says so, when the buttons may have gone

    // The two buttons, for a form without a row of detail buttons, where they stand else.
    QToolButton* Undo_Button() const { return Back; }
    QToolButton* Redo_Button() const { return Forth; }

    // Keeps the change, if there was one since the last call. `caption` names it for the user.
    virtual void Look(const QString& caption) = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void Undo();
    void Redo();

    QUndoStack Changes;

private:
    void Watch();
    void Look_Later(const QWidget& control);
    bool Takes_Key(QObject* watched, QEvent* event);
    bool Has_Own_Undo(const QLineEdit* box) const; // of what was typed since it was entered

    QDialog& Form;
    QToolButton *Back = nullptr, *Forth = nullptr;
    QString Text_When_Entered;
    QString Last_Used; // the caption of the control that was used last
};

// The same over the record that a form edits: it is taken after each change, and put back by an undo.
template <class Record> class Undo_History : public Undo_Keys {
public:
    // Owned by the form, which must have been laid out and filled.
    Undo_History(QDialog& form, std::function<Record()> take, std::function<void(const Record&)> put)
        : Undo_Keys(form),
          Take(std::move(take)),
          Put(std::move(put)),
          Known(std::make_shared<const Record>(Take()))
    {}

    void Look(const QString& caption) override
    {
        if (Restoring) // the focus moves while controls come and go
            return;
        auto now = std::make_shared<const Record>(Take());
        if (!(*now == *Known))
            Changes.push(new Change(*this, Known, now, caption));
        Known = std::move(now); // also what does not count as a change, such as the place that is shown
    }

private:
    class Change : public QUndoCommand {
    public:
        Change(Undo_History& history, std::shared_ptr<const Record> before, std::shared_ptr<const Record> after,
               const QString& caption)
            : QUndoCommand(caption),
              History(history),
              Before(std::move(before)),
              After(std::move(after))
        {}
        void undo() override { History.Restore(Before); }
        void redo() override
        {
            if (std::exchange(Made, true)) // the stack does what is pushed to it, which the user has done
                History.Restore(After);
        }

    private:
        Undo_History& History;
        std::shared_ptr<const Record> Before, After;
        bool Made = false;
    };

    void Restore(const std::shared_ptr<const Record>& record)
    {
        const QScopedValueRollback busy(Restoring, true);
        Put(*record);
        Known = std::make_shared<const Record>(Take());
    }

    std::function<Record()> Take;
    std::function<void(const Record&)> Put;
    std::shared_ptr<const Record> Known;
    bool Restoring = false;
};

// Begins the history of a form whose record `take` gives and `put` shows.
template <class Take, class Put> auto* Keep_History(QDialog& form, Take take, Put put)
{
    return new Undo_History<decltype(take())>(form, std::move(take), std::move(put));
}

} // namespace orvel
