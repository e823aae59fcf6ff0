// The sample host through a Go client: client LISTING MODULE. LISTING is what the type library's own test keeps of it.
// Looks every member of two interfaces up, calls with arguments left out and by reference, gets nothing, gets an error
// with its text, and lets everything go. (go-ole passes no arguments by name, and its GetTypeInfo leaves one out.)
package main

import (
	"errors"
	"fmt"
	"os"
	"regexp"
	"runtime"
	"strconv"
	"strings"
	"syscall"
	"unsafe"

	"github.com/go-ole/go-ole"
	"github.com/go-ole/go-ole/oleutil"
)

const (
	settings    = 601
	openDrawing = 626
	dropDown    = 1020
	exception   = 0x80020009 // DISP_E_EXCEPTION: what went wrong is in the record beside it
	failed      = 0x80004005 // E_FAIL
)

func check(what string, got, wanted interface{}) {
	fmt.Printf("%s: %v\n", what, got)
	if fmt.Sprint(got) != fmt.Sprint(wanted) {
		fmt.Printf("FAILED: %s is %v, not %v\n", what, got, wanted)
		os.Exit(1)
	}
}

// call runs a member and returns the object that it answers, nil for Nothing.
func call(object *ole.IDispatch, member string, arguments ...interface{}) *ole.IDispatch {
	return oleutil.MustCallMethod(object, member, arguments...).ToIDispatch()
}

func text(object *ole.IDispatch) string {
	result := oleutil.MustGetProperty(object, "Text")
	defer result.Clear()
	return result.ToString()
}

// members returns the names and dispatch identifiers that the listing has of an interface.
func members(listing, name string) map[string]int32 {
	_, rest, _ := strings.Cut(listing, "interface "+name+" ")
	rest, _, _ = strings.Cut(rest, "\ninterface ")
	found := map[string]int32{}
	for _, match := range regexp.MustCompile(`  0x([0-9a-f]{8}) (?:get|put|method) (\w+)\(`).FindAllStringSubmatch(rest, -1) {
		id, _ := strconv.ParseUint(match[1], 16, 32)
		found[match[2]] = int32(id)
	}
	return found
}

func lookUp(object *ole.IDispatch, wanted map[string]int32) {
	for name, id := range wanted {
		found, err := object.GetSingleIDOfName(name)
		if err != nil || found != id {
			check(name, found, id)
		}
	}
	fmt.Printf("members looked up: %d\n", len(wanted))
}

func drive(listing string) {
	unknown, err := oleutil.CreateObject("Ghosthand.Ghosthand")
	if err != nil {
		panic(err)
	}
	defer unknown.Release()
	entry := unknown.MustQueryInterface(ole.IID_IDispatch)
	defer entry.Release()
	lookUp(entry, members(listing, "IGhosthand"))

	host := call(entry, "MainWindow", "sample_host", "", "", 0, 60)
	defer host.Release()
	lookUp(host, members(listing, "IBaseWindow"))
	name := ole.NewVariant(ole.VT_BSTR, int64(uintptrOf("sample_host")))
	again := call(entry, "MainWindow", &name) // by reference, the rest left out
	check("by reference", text(again), text(host))
	again.Release()
	name.Clear()

	oleutil.MustCallMethod(host, "Command", settings)
	dialog := call(host, "ActiveDialog")
	combo := call(dialog, "ComboBox", dropDown)
	index := int32(1)
	item := oleutil.MustCallMethod(combo, "GetItem", &index)
	check("a number by reference", item.ToString(), "Brass")
	item.Clear()
	combo.Release()
	check("nothing", call(dialog, "TreeCtrl", 9999, 0, 0) == nil, true)
	oleutil.MustCallMethod(dialog, "Close")
	dialog.Release()

	oleutil.MustCallMethod(host, "Command", openDrawing)
	files := call(host, "OpenSaveDialog")
	oleutil.MustCallMethod(files, "Close")
	_, err = oleutil.CallMethod(files, "File", "part.cad")
	var failure *ole.OleError
	if !errors.As(err, &failure) {
		panic("File did not fail without its dialog")
	}
	check("error", fmt.Sprintf("%x %s", failure.Code(), failure.Description()),
		fmt.Sprintf("%x %s", uint32(exception), "Expected to find edit control"))
	record, _ := failure.SubError().(ole.EXCEPINFO)
	check("its code", fmt.Sprintf("%x", record.SCODE()), fmt.Sprintf("%x", uint32(failed)))
	files.Release()
}

func main() {
	runtime.LockOSThread() // an apartment is a thread
	listing, err := os.ReadFile(os.Args[1])
	if err != nil {
		panic(err)
	}
	if err := ole.CoInitializeEx(0, ole.COINIT_APARTMENTTHREADED); err != nil {
		panic(err)
	}
	drive(string(listing))
	unloadable, _, _ := syscall.NewLazyDLL(os.Args[2]).NewProc("DllCanUnloadNow").Call()
	check("unloadable", unloadable, 0)
	ole.CoUninitialize()
	fmt.Println("Done")
}

func uintptrOf(value string) uintptr {
	return uintptr(unsafe.Pointer(ole.SysAllocStringLen(value)))
}
