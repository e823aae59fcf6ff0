// What test programs ask for first, for C#. Copy it beside your programs and change it.
// Times are in seconds. A window is any object that a member of Ghosthand handed out; nothing found is null.
using System;
using System.Runtime.InteropServices;
using System.Threading;

static class Helpers
{
    const string NoSuch = "(no such window)";
    const int WmNull = 0, WmGetText = 0x0D, WmGetTextLength = 0x0E, WmChar = 0x102;
    const uint KeyUp = 2;

    public static dynamic Ghosthand()
    {
        return Activator.CreateInstance(Type.GetTypeFromProgID("Ghosthand.Ghosthand", true));
    }

    /// <summary>The main window of a running program; throws if there is none.</summary>
    public static dynamic MainWindow(string program, int seconds = 60)
    {
        dynamic window = Ghosthand().MainWindow(program, "", "", 0, seconds);
        if (window == null)
            throw new InvalidOperationException($"the main window of {program} was not found: start it first");
        return window;
    }

    /// <summary>Whether the window still exists, shown or not: the client area of a living one is at least one
    /// pixel.</summary>
    public static bool IsAlive(dynamic window) => window.Width > 0;

    /// <summary>Waits until the window is closed or hidden. False if it is still there.</summary>
    public static bool WaitUntilGone(dynamic window, int seconds = 10)
    {
        DateTime end = DateTime.UtcNow.AddSeconds(seconds);
        while (window.Visible && DateTime.UtcNow < end) WaitASecond(window);
        WaitASecond(window); // a dialog that is closed is hidden first, and then its owner takes input again
        return !window.Visible;
    }

    /// <summary>Waits for a second, or until the window no longer exists: a search ends early then.</summary>
    public static void WaitASecond(dynamic window)
    {
        window.ChildWindow(NoSuch, NoSuch, 0, 0, 1);
    }

    /// <summary>Runs a menu command by its id and returns the dialog that it opens. Command returns when the program
    /// is idle again, also while the dialog is open: it never blocks.</summary>
    public static dynamic OpenDialog(dynamic window, int command, int seconds = 10)
    {
        window.Command(command);
        dynamic dialog = window.ActiveDialog(seconds);
        if (dialog == null) throw new InvalidOperationException($"command {command} opened no dialog");
        return dialog;
    }

    /// <summary>Types a text into the window, a character at a time, and waits until it has arrived. Characters
    /// are those of ASCII; others have the codes of the system's code page.</summary>
    public static void TypeText(dynamic window, string text)
    {
        window.SetFocus();
        foreach (char character in text) window.PostMessageFocus(WmChar, (int)character);
        window.PostMessage(WmNull); // waits, which PostMessageFocus does not
    }

    /// <summary>Presses keys together: PressKeys(window, 0x11, 'A') is Ctrl+A. Real key strokes, which reach what is
    /// in front.</summary>
    public static void PressKeys(dynamic window, params int[] keys)
    {
        window.SetFocus();
        foreach (int key in keys) keybd_event((byte)key, 0, 0, UIntPtr.Zero);
        Array.Reverse(keys);
        foreach (int key in keys) keybd_event((byte)key, 0, KeyUp, UIntPtr.Zero);
        Thread.Sleep(50); // until the system has passed them on
        window.PostMessage(WmNull);
    }

    /// <summary>The window's handle, for the system's own functions.</summary>
    public static IntPtr HandleOf(dynamic window)
    {
        ((IOleWindow)window.AccessibleObject).GetWindow(out IntPtr handle);
        return handle;
    }

    /// <summary>The window's whole text; Text ends after 259 bytes.</summary>
    public static string LongText(dynamic window)
    {
        IntPtr handle = HandleOf(window);
        int length = (int)SendMessage(handle, WmGetTextLength, IntPtr.Zero, null);
        var text = new char[length + 1];
        length = (int)SendMessage(handle, WmGetText, (IntPtr)text.Length, text);
        return new string(text, 0, length);
    }

    public static void Expect<T>(string what, T got, T wanted)
    {
        Console.WriteLine($"{what + ":",-15} {got}");
        if (!Equals(got, wanted)) throw new InvalidOperationException($"{what} is '{got}', not '{wanted}'");
    }

    /// <summary>Runs a story and says how it went; the exit code of the program.</summary>
    public static int Run(Action story)
    {
        try
        {
            story();
            Console.WriteLine("Done");
            return 0;
        }
        catch (Exception error)
        {
            Console.WriteLine("FAILED: " + error.Message);
            return 1;
        }
    }

    [ComImport, Guid("00000114-0000-0000-C000-000000000046"), InterfaceType(ComInterfaceType.InterfaceIsIUnknown)]
    interface IOleWindow
    {
        void GetWindow(out IntPtr handle);
    }

    [DllImport("user32.dll")]
    static extern void keybd_event(byte key, byte scan, uint flags, UIntPtr extra);

    [DllImport("user32.dll", CharSet = CharSet.Unicode)]
    static extern IntPtr SendMessage(IntPtr window, int message, IntPtr wParam, [In, Out] char[] lParam);
}
