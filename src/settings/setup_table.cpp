#include "settings/setup_table.h"

#include "settings/profile.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"

#include <cstdlib>
#include <cstring>

const SetupText* FindSetupText(const SetupTable* table, int controlId) {
    for (unsigned i = 0; i < table->textCount; ++i)
        if (table->texts[i].controlId == controlId) return &table->texts[i];
    return nullptr;
}

namespace {

SetupRow BaseRow(int controlId, int kind, void* variable, const char* section, const char* key) {
    SetupRow row{};
    row.controlId = controlId;
    row.kind = kind;
    row.variable = variable;
    row.section = section;
    row.key = key;
    row.format = "%u";
    row.spare = 0;
    row.minimum.raw = 0;
    row.maximum.raw = 0;
    row.value.raw = 0;
    return row;
}

bool HasKey(const SetupRow& row) {
    return row.key && row.key[0] && row.section;
}

} // namespace

SetupRow SetupIntRow(int controlId, int32_t* variable, const char* section, const char* key,
                     int32_t minimum, int32_t maximum) {
    SetupRow row = BaseRow(controlId, SETUP_INT, variable, section, key);
    row.minimum.i = minimum;
    row.maximum.i = maximum;
    return row;
}

SetupRow SetupUIntRow(int controlId, uint32_t* variable, const char* section, const char* key,
                      uint32_t minimum, uint32_t maximum) {
    SetupRow row = BaseRow(controlId, SETUP_UINT, variable, section, key);
    row.minimum.u = minimum;
    row.maximum.u = maximum;
    return row;
}

SetupRow SetupFloatRow(int controlId, float* variable, const char* section, const char* key,
                       float minimum, float maximum) {
    SetupRow row = BaseRow(controlId, SETUP_FLOAT, variable, section, key);
    row.minimum.f = minimum;
    row.maximum.f = maximum;
    return row;
}

SetupRow SetupTextRow(int controlId, char* buffer, size_t size, const char* section,
                      const char* key) {
    SetupRow row = BaseRow(controlId, SETUP_TEXT, buffer, section, key);
    row.minimum.size = size;
    row.maximum.text = nullptr;
    row.value.text = nullptr;
    return row;
}

SetupRow SetupCheckRow(int controlId, int32_t* variable, const char* section, const char* key) {
    return BaseRow(controlId, SETUP_CHECK, variable, section, key);
}

SetupRow SetupRadioRow(int controlId, int32_t* variable, const char* section, const char* key) {
    return BaseRow(controlId, SETUP_RADIO, variable, section, key);
}

// Text blocks: the working text lives in a zero-filled block of the buffer's size between two
// passes, so that a Cancel never touches the live buffer.
char* TakeSetupTextBlock(SetupRow& row) {
    if (row.maximum.text) return row.maximum.text;
    size_t size = row.minimum.size ? row.minimum.size : 1;
    char* block = static_cast<char*>(std::calloc(size, 1));
    row.maximum.text = block;
    row.value.text = block;
    return block;
}

void FreeSetupTextBlock(SetupRow& row) {
    std::free(row.maximum.text);
    row.maximum.text = nullptr;
    row.value.text = nullptr;
}

void FreeSetupTextBlocks(SetupTable* table) {
    for (unsigned r = 0; r < table->rowCount; ++r)
        if (table->rows[r].kind == SETUP_TEXT) FreeSetupTextBlock(table->rows[r]);
}

void VariableToRow(SetupRow& row) {
    switch (row.kind) {
    case SETUP_INT:
    case SETUP_CHECK:
    case SETUP_RADIO:
        row.value.raw = 0;
        row.value.i = *static_cast<int32_t*>(row.variable);
        break;
    case SETUP_UINT:
        row.value.raw = 0;
        row.value.u = *static_cast<uint32_t*>(row.variable);
        break;
    case SETUP_FLOAT:
        row.value.raw = 0;
        row.value.f = *static_cast<float*>(row.variable);
        break;
    case SETUP_TEXT:
        if (char* block = TakeSetupTextBlock(row))
            BoundedCopy(block, static_cast<const char*>(row.variable), row.minimum.size);
        break;
    default:
        break;
    }
}

void VariablesToRows(SetupTable* table) {
    for (unsigned r = 0; r < table->rowCount; ++r)
        VariableToRow(table->rows[r]);
}

void RowsToVariables(SetupTable* table) {
    for (unsigned r = 0; r < table->rowCount; ++r) {
        SetupRow& row = table->rows[r];
        switch (row.kind) {
        case SETUP_INT:
        case SETUP_CHECK:
        case SETUP_RADIO:
            *static_cast<int32_t*>(row.variable) = row.value.i;
            break;
        case SETUP_UINT:
            *static_cast<uint32_t*>(row.variable) = row.value.u;
            break;
        case SETUP_FLOAT:
            *static_cast<float*>(row.variable) = row.value.f;
            break;
        case SETUP_TEXT:
            if (row.value.text)
                BoundedCopy(static_cast<char*>(row.variable), row.value.text, row.minimum.size);
            FreeSetupTextBlock(row);
            break;
        default:
            break;
        }
    }
}

void FileToRows(SetupTable* table, const char* fileName) {
    for (unsigned r = 0; r < table->rowCount; ++r) {
        SetupRow& row = table->rows[r];
        if (row.kind == SETUP_TEXT) {
            char* block = TakeSetupTextBlock(row);
            if (!block) continue;
            const char* live = static_cast<const char*>(row.variable);
            if (HasKey(row))
                GetPrivateProfileString(row.section, row.key, live, block, row.minimum.size,
                                        fileName);
            else
                BoundedCopy(block, live, row.minimum.size);
            continue;
        }
        VariableToRow(row);
        if (!HasKey(row)) continue;
        switch (row.kind) {
        case SETUP_INT:
        case SETUP_CHECK:
        case SETUP_RADIO:
            row.value.i =
                static_cast<int32_t>(ReadProfileLong(row.section, row.key, row.value.i, fileName));
            break;
        case SETUP_UINT:
            row.value.u =
                static_cast<uint32_t>(ReadProfileLong(row.section, row.key, row.value.u, fileName));
            break;
        case SETUP_FLOAT:
            row.value.f =
                static_cast<float>(ReadProfileDouble(row.section, row.key, row.value.f, fileName));
            break;
        default:
            break;
        }
    }
}

void RowsToFile(SetupTable* table, const char* fileName) {
    for (unsigned r = 0; r < table->rowCount; ++r) {
        SetupRow& row = table->rows[r];
        if (HasKey(row)) {
            switch (row.kind) {
            case SETUP_INT:
                WriteProfileInt(row.section, row.key, "%d", row.value.i, fileName);
                break;
            case SETUP_UINT:
                WriteProfileLong(row.section, row.key, "%lu", static_cast<long>(row.value.u),
                                 fileName);
                break;
            case SETUP_CHECK:
            case SETUP_RADIO:
                WriteProfileInt(row.section, row.key, "%u", row.value.i, fileName);
                break;
            case SETUP_FLOAT:
                WriteProfileDouble(row.section, row.key, "%-G", row.value.f, fileName);
                break;
            case SETUP_TEXT:
                if (row.value.text)
                    WritePrivateProfileString(row.section, row.key, row.value.text, fileName);
                break;
            default:
                break;
            }
        }
        if (row.kind == SETUP_TEXT) FreeSetupTextBlock(row);
    }
}

int LoadOptionTable(SetupTable* table, const char* fileName) {
    ProfileBatch batch(fileName);
    FileToRows(table, fileName);
    RowsToVariables(table);
    return 1;
}

int SaveOptionTable(SetupTable* table, const char* fileName) {
    ProfileBatch batch(fileName);
    VariablesToRows(table);
    RowsToFile(table, fileName);
    return 1;
}
