#pragma once

#include <QLineEdit>

namespace orvel {

// A field whose text goes into a file of the documents' code page. A character that the code page lacks is left out as
// it is typed or pasted, and a sentence below the field says so.
class Byte_Edit : public QLineEdit {
    Q_OBJECT

public:
    explicit Byte_Edit(QWidget* parent = nullptr);

    // The field's text in the documents' code page.
    std::string Typed() const;

    // The sentence that the field shows; empty if there is none.
    virtual QString Hint() const { return Left_Out; }

protected:
    void Tell(const QString& sentence);
    virtual void Adapt(QString& /*typed*/) const {} // what is typed or pasted, before it is shown; the length stays

private:
    class Code_Page_Validator;
    void Leave_Out(const QString& characters);

    QString Left_Out;
};

} // namespace orvel
