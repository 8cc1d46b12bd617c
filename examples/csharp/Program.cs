// Lets the user sort a small grid that is written here. On Windows, with the .NET SDK: dotnet run
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

[ComVisible(true)]
public class Column
{
    public string Caption { get; set; }
}

[ComVisible(true)]
public class SortKey
{
    public int ColIndex { get; set; }
    public int SortOrder { get; set; }  // 1 ascending, -1 descending
}

// What the control asks of a collection: items from 1, the first member being the default one.
[ComVisible(true)]
public class Items<T>
{
    protected readonly List<T> items = new List<T>();

    [DispId(0)]
    public object Item(object index) => items[Convert.ToInt32(index) - 1];
    public int Count => items.Count;
    public void Clear() => items.Clear();
    internal void Append(T item) => items.Add(item);
}

[ComVisible(true)]
public class ColumnList : Items<Column>
{
}

[ComVisible(true)]
public class SortKeyList : Items<SortKey>
{
    public void Add(object column, object order) =>
        items.Add(new SortKey { ColIndex = Convert.ToInt32(column), SortOrder = Convert.ToInt32(order) });
}

[ComVisible(true)]
public class Grid
{
    public ColumnList Columns { get; } = new ColumnList();
    public SortKeyList SortKeys { get; } = new SortKeyList();
    public bool Redraw { get; set; } = true;
}

public static class Program
{
    [STAThread]  // the control lives in a single-threaded apartment
    public static void Main()
    {
        var grid = new Grid();
        foreach (var name in new[] { "Country", "City", "Founded" })
            grid.Columns.Append(new Column { Caption = name });

        dynamic texts = Activator.CreateInstance(Type.GetTypeFromProgID("vmGridViewsStrings.MlStringService", true));
        texts.Language = (short)1033;  // English; Greek without this line
        dynamic editor = Activator.CreateInstance(Type.GetTypeFromProgID("vmGridViews.vmgrEdit", true));
        editor.Grid = grid;
        editor.ShowSort();

        for (var i = 1; i <= grid.SortKeys.Count; ++i)
        {
            var key = (SortKey)grid.SortKeys.Item(i);
            var column = (Column)grid.Columns.Item(key.ColIndex);
            Console.WriteLine($"{i}. {column.Caption}, {(key.SortOrder < 0 ? "descending" : "ascending")}");
        }
        Marshal.FinalReleaseComObject(editor);
    }
}
