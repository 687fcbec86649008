#include "files/broken_line.h"

#include "files/file_messages.h"

namespace orvel {

Message Broken_Line_Message(const Lost_Field& field)
{
    return {std::string(Saving_Input_File),
            "\"" + field.Name + "\" " + field.Cause + ": the file cannot be read back as it is."};
}

Message Broken_Line_Question(const Lost_Field& field)
{
    auto message = Broken_Line_Message(field);
    message.Text += " Do you want to save it all the same?";
    message.Picture = Icon::Question;
    message.Buttons = {Button::Yes, Button::No};
    message.Default = Button::No;
    return message;
}

} // namespace orvel
