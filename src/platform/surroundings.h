#pragma once

namespace headerdtc {

class Clock;
class Database;
class DataSourceFactory;
class FileDialog;
class MessageBox;
class PropertyChangeSink;
class Registry;
class TextFiles;

// Everything that one control asks of its surroundings. The objects outlive the control.
struct Surroundings {
    MessageBox& messages;
    FileDialog& fileDialog;
    Registry& registry;
    DataSourceFactory& dataSources;
    Database& database;
    TextFiles& textFiles;
    Clock& clock;
    PropertyChangeSink& changes;
};

}  // namespace headerdtc
