#pragma once

#include <cstring>
#include <memory>
#include <typeindex>
#include <unordered_map>

#include "inspect/Description.h"
#include "model/library/DistinctNames.h"

namespace veka {

/// The operations of a record class or an array class, as functions on addresses.
template <class T>
struct OperationsOf {
    static void* Make() { return new T; }
    static void* Copy(const void* source) { return new T(*static_cast<const T*>(source)); }
    static void* Move(void* source) { return new T(std::move(*static_cast<T*>(source))); }
    static void* Clone(const void* source) {
        const T& value = *static_cast<const T*>(source);
        if constexpr (requires { value.Clone(); })
            return value.Clone();
        else
            return value.clone();
    }
    static void Assign(void* target, const void* source) {
        *static_cast<T*>(target) = *static_cast<const T*>(source);
    }
    static void MoveAssign(void* target, void* source) {
        *static_cast<T*>(target) = std::move(*static_cast<T*>(source));
    }
    static void Init(void* record) { (static_cast<T*>(record)->*Opened::Pointer())(); }
    static constexpr bool HasInit() { return Opened::HasInit(); }
    static void Destroy(void* record) noexcept { delete static_cast<T*>(record); }
    static const void* Cast(const CVEKA_3DObject& object) { return dynamic_cast<const T*>(&object); }
    static CVEKA_3DObject* Object(void* record) { return static_cast<T*>(record); }

private:
    /// Names the protected `Init`. Some classes have a private one.
    struct Opened : T {
        static constexpr bool HasInit() {
            return requires {
                &Opened::Init;
            };
        }
        static constexpr auto Pointer() { return &Opened::Init; }
    };
};

/// The operations of an array class beside those.
template <class T>
struct ArrayOperationsOf {
    using Element = typename T::Element;
    static const T& Array(const void* array) { return *static_cast<const T*>(array); }
    static INT_PTR Size(const void* array) { return Array(array).GetSize(); }
    static RecordView At(const void* array, INT_PTR index) {
        const Element* element = Array(array).GetAt(index);
        return element ? View(*element) : RecordView{};
    }
    static void* Add(void* array) {
        auto element = std::make_unique<Element>();
        Element* added = element.get();
        static_cast<T*>(array)->Add(std::move(element));
        return added;
    }
    static std::vector<RecordView> Exchange(void* address, INT_PTR first, INT_PTR count,
                                            const std::vector<RecordView>& elements) {
        T& array = *static_cast<T*>(address);
        const INT_PTR size = array.GetSize();
        if (first < 0 || count < 0 || first > size || count > size - first) AfxThrowInvalidArgException();
        std::vector<Element*> fresh;
        fresh.reserve(elements.size());
        for (const RecordView& element : elements) fresh.push_back(FromView(element));
        std::vector<RecordView> taken;
        taken.reserve(static_cast<std::size_t>(count));
        for (INT_PTR i = first; i < first + count; ++i) taken.push_back(At(address, i));
        // Nothing fails behind this line: the array does not give memory back.
        const auto more = static_cast<INT_PTR>(fresh.size()) - count;
        if (more > 0) array.InsertAt(first, nullptr, more);
        if (more < 0) array.RemoveAt(first, -more);
        for (std::size_t i = 0; i < fresh.size(); ++i) array.SetAt(first + static_cast<INT_PTR>(i), fresh[i]);
        return taken;
    }
    static void CopyAll(void* target, const void* source) { static_cast<T*>(target)->Copy(Array(source)); }
    static void Append(void* target, const void* source) { static_cast<T*>(target)->Append(Array(source)); }

private:
    /// A record as an element of the array.
    static Element* FromView(const RecordView& view) {
        if (!view.record) return nullptr;
        void* record = const_cast<void*>(view.record);
        if constexpr (std::is_same_v<Element, CVEKA_3DObject>) {
            if (view.description->object) return view.description->object(record);
        } else if (*view.description->type == typeid(Element)) {
            return static_cast<Element*>(record);
        }
        AfxThrowInvalidArgException();
    }
};

/// Makes and keeps the descriptions. `Of` describes a class, and with it every class that its fields lead to.
class Descriptions {
public:
    /// The descriptions of this library, made at the first call.
    static const Descriptions& Instance();

    const RecordDescription* Find(const std::type_info& type) const {
        const auto found = m_all.find(type);
        return found == m_all.end() ? nullptr : &found->second;
    }
    const std::vector<const RecordDescription*>& All() const { return m_sorted; }

    template <class T>
    const RecordDescription* Of() {
        const auto [place, isNew] = m_all.try_emplace(typeid(T));
        if (isNew) Fill<T>(place->second);
        return &place->second;
    }

private:
    Descriptions();
    // Each in a file of its own, since the compiler takes long for them.
    void DescribeModel();
    void DescribeObjects();

    template <class T>
    void Fill(RecordDescription& description) {
        using Operations = OperationsOf<T>;
        description.type = &typeid(T);
        description.make = Operations::Make;
        description.copy = Operations::Copy;
        description.move = Operations::Move;
        description.clone = Operations::Clone;
        description.assign = Operations::Assign;
        description.moveAssign = Operations::MoveAssign;
        if constexpr (Operations::HasInit()) description.init = Operations::Init;
        description.destroy = Operations::Destroy;
        if constexpr (IsArray<T>)
            FillArray<T>(description);
        else
            FillRecord<T>(description);
    }

    template <class T>
    void FillArray(RecordDescription& description) {
        using Operations = ArrayOperationsOf<T>;
        description.name = T().GetRuntimeClass()->m_lpszClassName;
        description.element = Of<typename T::Element>();
        description.size = Operations::Size;
        description.at = Operations::At;
        description.add = Operations::Add;
        description.exchange = Operations::Exchange;
        description.copyAll = Operations::CopyAll;
        description.append = Operations::Append;
    }

    template <class T>
    void FillRecord(RecordDescription& description) {
        using Rows = FieldAccess::RowsOf<T>;
        description.name = Rows::Name();
        if constexpr (!std::is_void_v<typename Rows::Base>) {
            description.base = Of<typename Rows::Base>();
            description.inherited = description.base->fields.size();
        }
        if constexpr (std::is_base_of_v<CVEKA_3DObject, T>) {
            description.kind = WithoutPrefix(description.name);
            description.cast = OperationsOf<T>::Cast;
            description.object = OperationsOf<T>::Object;
        }
        const T sample;
        Collector collector{*this, description, &sample};
        ForEachField(sample, collector);
    }

    static const char* WithoutPrefix(const char* name) {
        for (const char* prefix : {"CVEKA_3DOJ_", "CVEKA_"})
            if (std::strncmp(name, prefix, std::strlen(prefix)) == 0) return name + std::strlen(prefix);
        return name;
    }

    /// Adds the description of each field of a record that it is called for.
    struct Collector {
        Descriptions& descriptions;
        RecordDescription& description;
        const void* sample;

        template <class Row, class T>
        void operator()(const Row& row, const T& value) {
            descriptions.AddField(row, row.member, value, sample, description);
        }
    };

    template <class Row, class Record, class T>
    void AddField(const Row& row, T Record::* /*member*/, const T& value, const void* sample,
                  RecordDescription& description) {
        FieldDescription field{};
        field.name = row.name;
        field.doc = row.doc;
        field.row = &row;
        field.owner = &m_all.at(typeid(Record));
        field.getterName = row.getterName;
        field.setterName = row.setterName;
        const void* address = &value;
        field.size = sizeof value;
        if constexpr (requires { value.get(); }) {
            using Content = std::remove_reference_t<decltype(*value)>;
            field.kind = IsArray<Content> ? FieldKind::Array : FieldKind::Record;
            field.size = sizeof(Content);
            field.content = Of<Content>();
            address = value.get();
        } else {
            field.kind = kKindOf<T>;
        }
        field.offset = static_cast<const char*>(address) - static_cast<const char*>(sample);
        if constexpr (!std::is_null_pointer_v<decltype(row.getter)>) {
            field.get = Get<Row, Record, T>;
            if constexpr (requires { value.get(); }) {
                using Given = decltype((std::declval<const Record&>().*row.getter)());
                field.givesConstant = std::is_const_v<std::remove_pointer_t<Given>>;
            }
        }
        if constexpr (!std::is_null_pointer_v<decltype(row.setter)>) field.set = Set<Row, Record, T>;
        description.fields.push_back(field);
    }

    template <class T>
    static constexpr FieldKind KindOf() {
        if constexpr (std::is_same_v<T, bool>)
            return FieldKind::Flag;
        else if constexpr (std::is_same_v<T, int> || std::is_same_v<T, long long>)
            return FieldKind::Whole;
        else if constexpr (std::is_same_v<T, double>)
            return FieldKind::Real;
        else if constexpr (std::is_same_v<T, CString>)
            return FieldKind::Text;
        else if constexpr (std::is_same_v<T, CStringArray>)
            return FieldKind::TextList;
        else {
            static_assert(std::is_same_v<T, DistinctNames>, "a field of this type has no kind");
            return FieldKind::DistinctNames;
        }
    }
    template <class T>
    static constexpr FieldKind kKindOf = KindOf<T>();

    template <class Row, class Record, class T>
    static void Get(const FieldDescription& field, const void* record, void* result) {
        const Record& self = *static_cast<const Record*>(record);
        const auto getter = static_cast<const Row*>(field.row)->getter;
        if constexpr (requires { T().get(); })
            *static_cast<const void**>(result) = (self.*getter)();
        else if constexpr (requires(CStringArray & list) { (self.*getter)(list); })
            (self.*getter)(*static_cast<CStringArray*>(result));
        else
            *static_cast<T*>(result) = (self.*getter)();
    }
    template <class Row, class Record, class T>
    static void Set(const FieldDescription& field, void* record, const void* value) {
        Record& self = *static_cast<Record*>(record);
        const auto setter = static_cast<const Row*>(field.row)->setter;
        if constexpr (requires(T & owned) { owned.get(); })
            (self.*setter)(static_cast<decltype(std::declval<T&>().get())>(const_cast<void*>(value)));
        else
            (self.*setter)(*static_cast<const T*>(value));
    }

    std::unordered_map<std::type_index, RecordDescription> m_all;
    std::vector<const RecordDescription*> m_sorted;
};

}  // namespace veka
